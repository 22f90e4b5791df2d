// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportProgress.h"

#include <QApplication>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>

#include "DialogFixture.h"
#include "dialogs/TimeLeft.h"

namespace {

using testing::ElementsAre;
using namespace std::chrono_literals;

class ExportProgressTest : public DialogFixture {
 protected:
  /// Begins an export that stands still at 25 %.
  QPointer<ExportVC> begin() {
    _held.hold();
    _held.setDone(0.25);
    auto dialog = openExport(job());
    saveAs(*dialog, "out");
    return dialog;
  }
  /// The same, its progress on the screen.
  QPointer<ExportVC> exportLong() {
    auto dialog = begin();
    pass(250ms);
    _progress = waitForShown<ExportProgress>();
    return dialog;
  }
  /// Lets the time pass and waits until the queue has looked at the work since.
  void pass(std::chrono::milliseconds time) {
    _now += time;
    const QSignalSpy looks(_queue.get(), &ExportQueue::progressed);
    EXPECT_TRUE(waitUntil([&] { return looks.count() >= 2; }));
  }
  void expectCancelled(const QPointer<ExportVC>& dialog) {
    EXPECT_THAT(told(dialog), ElementsAre("EB_RELOAD_FILE_LIST"));
    EXPECT_EQ(nullptr, shown<QMessageBox>());
    EXPECT_TRUE(_progress.isNull());
    EXPECT_THAT(_folder.names(), ElementsAre("R0001.WAV"));
  }

  QPointer<ExportProgress> _progress;
};

TEST_F(ExportProgressTest, TellsWhatAndHowMuch) {
  const auto dialog = exportLong();
  EXPECT_EQ(QString("Export"), _progress->windowTitle());
  EXPECT_EQ(Qt::NonModal, _progress->windowModality());
  expectInTheMiddle(*_progress, _mainWindow->frameGeometry());
  const QStringList texts = labels(*_progress);
  EXPECT_TRUE(texts.contains("Exporting R0001.WAV"));
  EXPECT_TRUE(texts.contains("to out.WAV"));
  EXPECT_EQ(250, _progress->findChild<QProgressBar*>()->value());
  pass(750ms);
  EXPECT_EQ(QString("25 % · About 3 s left"), _progress->findChild<QLabel*>("state")->text());
  _held.releaseAll();
  EXPECT_THAT(told(dialog),
              ElementsAre("EB_RELOAD_FILE_LIST", "exported " + path("out.WAV").string()));
  EXPECT_TRUE(_progress.isNull());
}

TEST_F(ExportProgressTest, ComesAfterAQuarterOfASecond) {
  begin();
  pass(249ms);
  EXPECT_EQ(nullptr, shown<ExportProgress>());
  pass(1ms);
  EXPECT_NE(nullptr, shown<ExportProgress>());
}

TEST_F(ExportProgressTest, AShortExportNeedsNone) {
  const auto dialog = begin();
  pass(249ms);
  bool wasShown = false;
  QObject::connect(_queue.get(), &ExportQueue::finished, _queue.get(),
                   [&] { wasShown = shown<ExportProgress>() != nullptr; });
  _held.releaseAll();
  told(dialog);
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

TEST_F(ExportProgressTest, EscapeReachesItAsSoonAsItIsThere) {
  const auto dialog = exportLong();
  EXPECT_TRUE(waitUntil([this] { return QApplication::activeWindow() == _progress; }));
  ASSERT_NE(nullptr, QApplication::focusWidget());
  EXPECT_FALSE(_progress->findChild<QPushButton*>()->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  expectCancelled(dialog);
}

TEST_F(ExportProgressTest, TheWindowMayCancelIt) {
  const auto dialog = exportLong();
  _queue->cancelAll();
  expectCancelled(dialog);
}

TEST_F(ExportProgressTest, ASecondExportShowsTheOneThatRuns) {
  const auto dialog = exportLong();
  _progress->hide();
  _desk->ask(job());
  EXPECT_EQ(nullptr, shown<ExportVC>());
  EXPECT_TRUE(_progress->isVisible());
  EXPECT_EQ(1U, _queue->ids().size());
  _queue->cancelAll();
  expectCancelled(dialog);
}

TEST_F(ExportProgressTest, EachOrderHasItsOwn) {
  exportLong();
  _queue->add({.source = path("R0001.WAV"), .target = path("second.WAV")});
  pass(1000ms);
  EXPECT_TRUE(labels(*shown<ExportProgress>()).contains("to out.WAV"));
  _held.release(path("out.WAV"));
  EXPECT_TRUE(waitUntil([&] { return _progress.isNull(); }));
  EXPECT_EQ(nullptr, shown<ExportProgress>());  // its time begins with its work
  pass(250ms);
  auto* const second = waitForShown<ExportProgress>();
  EXPECT_TRUE(labels(*second).contains("to second.WAV"));
  click(*second, "Cancel");
  EXPECT_TRUE(waitUntil([&] { return !_queue->isBusy(); }));
  EXPECT_FALSE(std::filesystem::exists(path("second.WAV")));
}

TEST_F(ExportProgressTest, TheEndOfTheWindowIsTheEndOfTheExport) {
  exportLong();
  _desk.reset();
  EXPECT_TRUE(_progress.isNull());
  _queue.reset();
  EXPECT_THAT(_told, testing::IsEmpty());
  EXPECT_THAT(_folder.names(), ElementsAre("R0001.WAV"));
}

// It comes by itself while the user may be typing: keys meant for the player do not reach Cancel.
TEST_F(ExportProgressTest, SpaceAndReturnDoNotCancel) {
  ExportProgress progress("a.wav", "b.WAV", nullptr);
  int cancels = 0;
  QObject::connect(&progress, &ExportProgress::cancelRequested, [&] { ++cancels; });
  progress.show();
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
