// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>

#include "WindowFixture.h"
#include "dialogs/ExportVC.h"
#include "support/SlowReads.h"

namespace {

class Closing : public WindowFixture {
 protected:
  /// Begins an export that takes a while.
  void beginExport() {
    take("R0001.WAV", 480'000);
    SlowReads::limit(takes.path().string(), 1'000'000);
    startOnTakes();
    open("R0001.WAV");
    controller().btnExport_Click();
    shown<ExportVC>()->btnSave_Click();
    auto* const panel = shown<QFileDialog>();
    ASSERT_NE(panel, nullptr);
    const auto target = takes.path() / "out.WAV";
    panel->findChild<QLineEdit*>()->setText(QString::fromStdString(target.string()));
    QTest::keyClick(panel->findChild<QLineEdit*>(), Qt::Key_Return);
    waitFor([] { return ExportVC::isExporting(); }, "the export");
  }
  void TearDown() override {
    SlowReads::reset();
    ExportVC::cancelRunning();
    waitFor([] { return !ExportVC::isExporting(); }, "the end of the export");
  }
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
  press(question, "Go on");
  EXPECT_TRUE(view().isVisible());
  EXPECT_TRUE(ExportVC::isExporting());
}

TEST_F(Closing, ExportIsCancelledWhereTheUserWantsTheEnd) {
  beginExport();
  view().close();
  press(shown<QMessageBox>(), "Cancel export and quit");
  EXPECT_FALSE(view().isVisible());
  SlowReads::reset();
  waitFor([] { return !ExportVC::isExporting(); }, "the end of the export");
  EXPECT_FALSE(std::filesystem::exists(takes.path() / "out.WAV"));
}

}  // namespace
