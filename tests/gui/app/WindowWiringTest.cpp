// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowWiring.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "dialogs/NodeviceVC.h"
#include "support/LogLines.h"
#include "support/OwnSettings.h"

namespace {

/// The panes over views that no window shows.
class Wiring : public testing::Test {
 protected:
  using Files = std::vector<std::filesystem::path>;

  LogLines log;
  OwnSettings own;
  MainView view;
  QObject owner;
  WindowPanes panes{view, owner};
  WindowWiring wiring{panes};
};

TEST_F(Wiring, TheEndIsAskedForByTheMenuAndByTheQuestionBeforeIt) {
  const QSignalSpy ends(&wiring, &WindowWiring::endRequested);
  view.menu->actionQuit->trigger();
  EXPECT_EQ(ends.count(), 1);
  emit panes.ending.endRequested();
  EXPECT_EQ(ends.count(), 2);
}

TEST_F(Wiring, FilesAreShownForRowsForExportsAndForCards) {
  Files shown;
  QObject::connect(&wiring, &WindowWiring::showFilesRequested, &wiring,
                   [&](const Files& files) { shown = files; });
  emit panes.rowMenu.showRequested({"/takes/a.wav"});
  EXPECT_EQ(shown, Files{"/takes/a.wav"});
  emit panes.batch.showInFolderRequested({"/takes/b.wav"});
  EXPECT_EQ(shown, Files{"/takes/b.wav"});
  emit panes.cards.showInFolderRequested({"/takes/c.wav"});
  EXPECT_EQ(shown, Files{"/takes/c.wav"});
}

TEST_F(Wiring, AListingIsTold) {
  const QSignalSpy listings(&wiring, &WindowWiring::listed);
  emit panes.browser.listed();
  EXPECT_EQ(listings.count(), 1);
}

TEST_F(Wiring, TheSwitchInTheMenuIsTheMeters) {
  EXPECT_FALSE(panes.levels.isByRecordersRule());
  view.menu->actionMetersByRule->trigger();
  EXPECT_TRUE(panes.levels.isByRecordersRule());
  view.menu->actionMetersByRule->trigger();
  EXPECT_FALSE(panes.levels.isByRecordersRule());
}

TEST_F(Wiring, WhoPressesWithoutARecorderIsToldHowToConnectOne) {
  emit panes.device.recorderMissing();
  EXPECT_NE(view.findChild<NodeviceVC*>(), nullptr);
}

}  // namespace
