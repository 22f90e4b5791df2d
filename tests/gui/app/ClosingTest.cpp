// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>

#include "WindowFixture.h"
#include "dialogs/BatchDialog.h"
#include "dialogs/ExportVC.h"
#include "dialogs/SavePanel.h"
#include "support/LongTake.h"
#include "support/SlowReads.h"

namespace {

class Closing : public WindowFixture {
 protected:
  /// Begins an export that would take minutes.
  void beginExport() {
    LongTake::make(takes, "R0001.WAV", 300'000'000);
    SlowReads::limit(takes.path().string(), 1'000'000);
    startOnTakes();
    open("R0001.WAV");
    controller().btnExport_Click();
    shown<ExportVC>()->btnSave_Click();
    auto* const panel = shown<SavePanel>();
    ASSERT_NE(panel, nullptr);
    const auto target = takes.path() / "out.WAV";
    panel->findChild<QLineEdit*>()->setText(QString::fromStdString(target.string()));
    QTest::keyClick(panel->findChild<QLineEdit*>(), Qt::Key_Return);
    waitFor([this] { return exports().isBusy(); }, "the export");
  }
  void TearDown() override {
    SlowReads::reset();
    exports().cancelAll();
    waitForEnd();
  }
  void waitForEnd() {
    waitFor([this] { return !exports().isBusy(); }, "the end of the export");
  }
  ExportQueue& exports() { return controller().exportQueue(); }
};

TEST_F(Closing, WithoutAnExportItClosesAtOnce) {
  startOnTakes();
  view().close();
  EXPECT_FALSE(view().isVisible());
}

TEST_F(Closing, DuringAnExportItAsksFirst) {
  beginExport();
  view().close();
  EXPECT_TRUE(view().isVisible());
  auto* const question = shown<QMessageBox>();
  ASSERT_NE(question, nullptr);
  EXPECT_EQ(question->defaultButton()->text(), "Keep exporting");
  EXPECT_EQ(question->escapeButton(), question->defaultButton());
  EXPECT_EQ(question->focusWidget(), question->defaultButton());
  QList<QPushButton*> buttons = question->findChildren<QPushButton*>();
  std::ranges::sort(buttons, {}, [](const QPushButton* it) { return it->x(); });
  EXPECT_EQ(buttons.first()->text(), "Keep exporting");
  press(question, "Keep exporting");
  EXPECT_TRUE(view().isVisible());
  EXPECT_TRUE(exports().isBusy());
}

TEST_F(Closing, DuringABatchItAsksForAllOfThem) {
  LongTake::make(takes, "R0001.WAV", 300'000'000);
  LongTake::make(takes, "R0002.WAV", 300'000'000);
  SlowReads::limit(takes.path().string(), 1'000'000);
  startOnTakes();
  QTest::keyClick(view().browser->tableFile, Qt::Key_A, Qt::ControlModifier);
  QPushButton& button = *view().browser->btnExportSelected;
  waitFor([&] { return button.isVisible(); }, "the bar");
  button.click();
  auto* const begin = shown<BatchDialog>()->findChild<QPushButton*>(QStringLiteral("export"));
  waitFor([&] { return begin->isEnabled(); }, "the plan");
  begin->click();
  ASSERT_TRUE(exports().isBusy());
  view().close();
  EXPECT_TRUE(view().isVisible());
  auto* const question = shown<QMessageBox>();
  ASSERT_NE(question, nullptr);
  EXPECT_EQ(question->informativeText(),
            "2 exports are still running or waiting. Ending now cancels them.");
  press(question, "Cancel exports and quit");
  EXPECT_FALSE(view().isVisible());
  SlowReads::reset();
  waitForEnd();
  EXPECT_THAT(takes.names(), testing::ElementsAre("R0001.WAV", "R0002.WAV"));
}

TEST_F(Closing, ExportIsCancelledWhereTheUserWantsTheEnd) {
  beginExport();
  view().close();
  press(shown<QMessageBox>(), "Cancel export and quit");
  EXPECT_FALSE(view().isVisible());
  SlowReads::reset();
  waitForEnd();
  EXPECT_FALSE(std::filesystem::exists(takes.path() / "out.WAV"));
}

}  // namespace
