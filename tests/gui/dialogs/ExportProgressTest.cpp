// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportProgress.h"

#include <QMessageBox>
#include <QTest>

#include "DialogFixture.h"
#include "dialogs/TimeLeft.h"
#include "support/LongTake.h"

namespace {

using testing::ElementsAre;

constexpr std::uint32_t kLong = 3'000'000'000;

class ExportProgressTest : public DialogFixture {
 protected:
  /// A long export, its progress on the screen.
  QPointer<ExportVC> exportLong() {
    const auto dialog =
        openExport(std::make_shared<Export>(LongTake::make(_folder, "long.wav", kLong)));
    saveAs(*dialog, "out");
    _progress = waitForShown<ExportProgress>();
    return dialog;
  }
  void expectCancelled(const QPointer<ExportVC>& dialog) {
    EXPECT_THAT(told(dialog), ElementsAre("EB_RELOAD_FILE_LIST"));
    EXPECT_EQ(nullptr, shown<QMessageBox>());
    EXPECT_TRUE(_progress.isNull());
    EXPECT_FALSE(ExportVC::isExporting());
    EXPECT_THAT(_folder.names(), ElementsAre("long.wav"));
  }

  QPointer<ExportProgress> _progress;
};

TEST_F(ExportProgressTest, TellsWhatAndHowMuch) {
  const auto dialog = exportLong();
  EXPECT_EQ(QString("Export"), _progress->windowTitle());
  EXPECT_EQ(Qt::NonModal, _progress->windowModality());
  const QStringList texts = labels(*_progress);
  EXPECT_TRUE(texts.contains("Exporting long.wav"));
  EXPECT_TRUE(texts.contains("to out.WAV"));
  auto* const bar = _progress->findChild<QProgressBar*>();
  EXPECT_TRUE(waitUntil([&] { return bar->value() > 0; }));
  EXPECT_TRUE(_progress->findChild<QLabel*>("state")->text().contains(" %"));
  _progress->reject();
  expectCancelled(dialog);
}

TEST_F(ExportProgressTest, AShortExportNeedsNone) {
  const auto dialog = openExport(job());
  saveAs(*dialog, "out");
  bool wasShown = false;
  EXPECT_TRUE(waitUntil([&] {
    wasShown = wasShown || shown<ExportProgress>() != nullptr;
    return dialog.isNull();
  }));
  EXPECT_FALSE(wasShown);
}

TEST_F(ExportProgressTest, CancelEndsTheExport) {
  const auto dialog = exportLong();
  click(*_progress, "Cancel");
  expectCancelled(dialog);
}

TEST_F(ExportProgressTest, EscapeAndClosingAreCancels) {
  const auto first = exportLong();
  QTest::keyClick(_progress, Qt::Key_Escape);
  expectCancelled(first);
  _told.clear();
  const auto second = exportLong();
  _progress->close();
  expectCancelled(second);
}

TEST_F(ExportProgressTest, TheWindowMayCancelIt) {
  const auto dialog = exportLong();
  EXPECT_TRUE(ExportVC::isExporting());
  ExportVC::cancelRunning();
  expectCancelled(dialog);
  ExportVC::cancelRunning();  // nothing to cancel any more
}

TEST_F(ExportProgressTest, ASecondExportShowsTheOneThatRuns) {
  const auto dialog = exportLong();
  _progress->hide();
  const QPointer<ExportVC> second(new ExportVC(_mainWindow.get()));
  second->setExporter(job());
  second->open();
  EXPECT_FALSE(second->isVisible());
  EXPECT_TRUE(_progress->isVisible());
  EXPECT_TRUE(waitUntil([&] { return second.isNull(); }));
  EXPECT_TRUE(ExportVC::isExporting());
  std::filesystem::remove(path("R0001.WAV"));
  ExportVC::cancelRunning();
  expectCancelled(dialog);
}

TEST_F(ExportProgressTest, TheEndOfTheWindowIsTheEndOfTheExport) {
  const auto dialog = exportLong();
  _mainWindow.reset();
  EXPECT_TRUE(dialog.isNull());
  EXPECT_TRUE(_progress.isNull());
  EXPECT_FALSE(ExportVC::isExporting());
  EXPECT_THAT(_folder.names(), ElementsAre("long.wav"));
}

// It comes by itself while the user may be typing: keys meant for the player do not reach Cancel.
TEST_F(ExportProgressTest, SpaceAndReturnDoNotCancel) {
  ExportProgress progress("a.wav", "b.WAV", nullptr);
  int cancels = 0;
  QObject::connect(&progress, &ExportProgress::cancelRequested, [&] { ++cancels; });
  progress.show();
  EXPECT_TRUE(progress.testAttribute(Qt::WA_ShowWithoutActivating));
  QWidget* const focused = progress.focusWidget() != nullptr ? progress.focusWidget() : &progress;
  QTest::keyClick(focused, Qt::Key_Space);
  QTest::keyClick(focused, Qt::Key_Return);
  EXPECT_EQ(0, cancels);
  QTest::keyClick(focused, Qt::Key_Tab);
  QTest::keyClick(progress.focusWidget(), Qt::Key_Space);
  EXPECT_EQ(1, cancels);
}

TEST_F(ExportProgressTest, ShowsTheFigures) {
  ExportProgress progress("a.wav", "b.WAV", nullptr);
  auto* const state = progress.findChild<QLabel*>("state");
  EXPECT_EQ(QString("0 %"), state->text());
  progress.update(0.4567, {});
  EXPECT_EQ(QString("45 %"), state->text());
  EXPECT_EQ(456, progress.findChild<QProgressBar*>()->value());
  progress.update(0.999, "About 1 s left");
  EXPECT_EQ(QString("99 % · About 1 s left"), state->text());
  progress.reject();
  EXPECT_EQ(QString("Cancelling"), state->text());
  progress.update(0.9999, "About 1 s left");
  EXPECT_EQ(QString("Cancelling"), state->text());
  EXPECT_FALSE(progress.findChild<QPushButton*>()->isEnabled());
}

TEST(TimeLeft, IsJudgedByTheTimeSoFar) {
  EXPECT_EQ(QString(), TimeLeft::text(0, 0));
  EXPECT_EQ(QString(), TimeLeft::text(0.9, 0.5));
  EXPECT_EQ(QString(), TimeLeft::text(10, 0.009));
  EXPECT_EQ(QString("About 10 s left"), TimeLeft::text(10, 0.5));
  EXPECT_EQ(QString("About 1 s left"), TimeLeft::text(9.9, 0.99));
  EXPECT_EQ(QString("About 0 s left"), TimeLeft::text(10, 1));
  EXPECT_EQ(QString("About 59 s left"), TimeLeft::text(59, 0.5));
  EXPECT_EQ(QString("About 1 min left"), TimeLeft::text(60, 0.5));
  EXPECT_EQ(QString("About 2 min left"), TimeLeft::text(61, 0.5));
  EXPECT_EQ(QString("About 99 min left"), TimeLeft::text(60, 0.01));
}

}  // namespace
