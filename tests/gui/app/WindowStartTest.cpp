// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowStart.h"

#include <QPushButton>

#include "TakeFixture.h"
#include "base/Utility.h"
#include "dialogs/IntroductionVC.h"
#include "support/OwnSettings.h"

namespace {

/// The start over a bare widget, without the window; this version has been introduced.
class Start : public TakeFixture {
 protected:
  Start() {
    commands.readVersion();
    Utility::store(Utility::kDoNotShowAgain, commands.versionString().toStdString());
    commands.readVersion();
  }
  /// Until it is known what is there, and what came of a take.
  void settle() {
    ASSERT_TRUE(EventLoop::runUntil([this] { return !browser.isLooking(); }));
    waitForTake();
  }
  [[nodiscard]] bool isOpen(const std::string& name) const {
    return session->isOpen() && session->name().toStdString() == name;
  }

  OwnSettings own;
  QWidget widget;
  WindowMenu menu{widget};
  QPushButton button;
  StatusLine status;
  FolderBrowser browser;
  ExportQueue exports;
  ExportDesk desk{exports, widget};
  WindowCommands commands{{widget, menu, button, status, exports, desk}, *session, browser};
  WindowStart start{browser, commands, *session};
};

TEST_F(Start, NothingIsOpenedBeforeTheWindowAppears) {
  start.open({take("R0001.WAV")});
  settle();
  EXPECT_TRUE(browser.requestedFolder().empty());
  start.appear();
  settle();
  EXPECT_EQ(browser.requestedFolder(), takes.path());
  EXPECT_TRUE(isOpen("R0001.WAV"));
}

TEST_F(Start, WithoutAWordItIsTheFolderOfTheLastTime) {
  Utility::store(Utility::kLastOpenFolder, takes.path().string());
  start.open({});
  start.appear();
  settle();
  EXPECT_EQ(browser.requestedFolder(), takes.path());
  EXPECT_FALSE(session->isOpen());
}

TEST_F(Start, WhatIsNamedLaterIsOpenedAtOnce) {
  start.appear();
  settle();
  start.open({take("R0002.WAV")});
  settle();
  EXPECT_TRUE(isOpen("R0002.WAV"));
  start.open({});
  settle();
  EXPECT_EQ(browser.requestedFolder(), takes.path()) << "nothing was named";
}

TEST_F(Start, ARecordingWaitsForTheEndOfTheIntroduction) {
  Utility::store(Utility::kDoNotShowAgain, "an earlier version");
  commands.readVersion();
  start.open({take("R0001.WAV")});
  start.appear();
  settle();
  EXPECT_EQ(browser.requestedFolder(), takes.path()) << "its folder is shown behind it";
  auto* const introduction = widget.findChild<IntroductionVC*>();
  ASSERT_NE(introduction, nullptr);
  EXPECT_FALSE(session->isOpen()) << "it does not play behind a dialog";
  const auto second = take("R0002.WAV");
  emit browser.takeChosen({false, "R0002.WAV", FolderHelper::kFileIcon, second});
  settle();
  EXPECT_FALSE(session->isOpen());
  delete introduction;
  settle();
  EXPECT_TRUE(isOpen("R0002.WAV")) << "the last that was chosen";
}

}  // namespace
