// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TakeRecall.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <fstream>
#include <vector>

#include "WindowFixture.h"
#include "app/RowReader.h"
#include "base/Utility.h"
#include "dialogs/BatchDialog.h"
#include "support/LockedMemory.h"
#include "support/NewerMemory.h"
#include "takes/TakeMemory.h"

namespace {

/// What takes were heard with, in the whole window.
class Recall : public WindowFixture {
 protected:
  static constexpr double kWithin = 1e-9;

  Recall() {
    Utility::store(Utility::kRememberTakes, "on");
    take("A.WAV", 480'000);
    take("B.WAV", 240'000);
    take("Plain.WAV", 96'000, false);
  }
  TakeRecall& recall() {
    auto* const found = controller().findChild<TakeRecall*>();
    EXPECT_NE(found, nullptr);
    return *found;
  }
  /// Opens it and waits until it is known what is remembered of it.
  void openKnown(const std::string& name) {
    const QSignalSpy recalled(&recall(), &TakeRecall::recalled);
    open(name);
    waitFor([&] { return !recalled.empty(); }, "what is remembered");
  }
  void set(double width, double gain) {
    stage().sliderStereo->setNewAngle(width);
    setGain(gain);
  }
  void expectSound(double width, std::int64_t gain) {
    EXPECT_NEAR(controller().take().angle(), width, kWithin);
    EXPECT_NEAR(stage().sliderStereo->angle(), width, kWithin);
    EXPECT_EQ(controller().take().gain(), gain);
    EXPECT_EQ(stage().sliderGain->integerValue(), gain);
    EXPECT_EQ(player().angle(), static_cast<std::int64_t>(width));
  }
  /// Asks for the export of all takes of the list; the dialog that came, once it knows what there
  /// is to know.
  BatchDialog& askForAll() {
    QTest::keyClick(view().browser->tableFile, Qt::Key_A, Qt::ControlModifier);
    QTest::mouseClick(view().browser->btnExportSelected, Qt::LeftButton);
    auto* const dialog = shown<BatchDialog>();
    waitFor([&] { return beginOf(*dialog).isEnabled(); }, "the plan");
    return *dialog;
  }
  static QPushButton& beginOf(const BatchDialog& dialog) {
    return *dialog.findChild<QPushButton*>(QStringLiteral("export"));
  }
  static QCheckBox& rememberedOf(const BatchDialog& dialog) {
    return *dialog.findChild<QCheckBox*>(QStringLiteral("remembered"));
  }
  /// Exports all takes of the list as they are remembered; what is made of them goes.
  std::vector<ExportOrder> ordersOfAll() {
    std::vector<ExportOrder> orders;
    QObject::connect(&controller().exportQueue(), &ExportQueue::added,
                     [&orders](int, const ExportOrder& order) { orders.push_back(order); });
    const BatchDialog& dialog = askForAll();
    EXPECT_TRUE(rememberedOf(dialog).isVisible());
    rememberedOf(dialog).setChecked(true);
    waitFor([&] { return beginOf(dialog).isEnabled(); }, "the plan");
    QTest::mouseClick(&beginOf(dialog), Qt::LeftButton);
    controller().exportQueue().cancelAll();
    waitFor([this] { return !controller().exportQueue().isBusy(); }, "the end");
    return orders;
  }
  /// Starts on a memory that is not one.
  void startOnDamage() {
    std::filesystem::create_directories(TakeMemory::defaultPath().parent_path());
    std::ofstream(TakeMemory::defaultPath()) << std::string(10'000, 'x');
    startOnTakes();
  }
  void waitForMessage() {
    waitFor([this] { return !said().isEmpty(); }, "what is the matter");
  }
  /// Has something remembered, and ends.
  void rememberSomething() {
    startOnTakes();
    openKnown("A.WAV");
    set(60, -6);
    end();
  }
  [[nodiscard]] std::optional<FrameLoop> loop() { return controller().take().loop(); }
  [[nodiscard]] QString said() const {
    return view().player->lblStatus->message(StatusLine::Topic::Memory);
  }
};

TEST_F(Recall, WidthGainAndLoopOfATakeComeBack) {
  startOnTakes();
  openKnown("A.WAV");
  set(60.25, -6);
  controller().take().setLoop(FrameLoop{48'000, 96'000});
  openKnown("B.WAV");
  expectSound(60.25, -6);  // nothing is known of it: as it was
  EXPECT_FALSE(loop());
  set(30, 4);
  openKnown("A.WAV");
  expectSound(60.25, -6);
  EXPECT_EQ(loop(), (FrameLoop{48'000, 96'000}));
  EXPECT_TRUE(view().player->btnLoop->isChecked());
  EXPECT_LT(player().curremtTime(), 0.5) << "the loop is played into, not gone to";
  openKnown("B.WAV");
  expectSound(30, 4);
  EXPECT_FALSE(loop());
}

TEST_F(Recall, TheyComeBackAfterTheEndAndUnderAnotherName) {
  startOnTakes();
  openKnown("A.WAV");
  set(75, 9);
  end();
  std::filesystem::rename(takes.path() / "A.WAV", takes.path() / "Bells.WAV");
  startOnTakes();
  openKnown("Bells.WAV");
  expectSound(75, 9);
}

TEST_F(Recall, AtTheEndOfTheProgramItIsGivenToTheWriterBeforeAnybodyWaits) {
  startOnTakes();
  openKnown("A.WAV");
  set(75, 9);
  const auto* const later = recall().findChild<QTimer*>(QStringLiteral("timerRemember"));
  ASSERT_TRUE(later->isActive());
  QMetaObject::invokeMethod(qApp, "aboutToQuit");
  EXPECT_FALSE(later->isActive());
  end();
  startOnTakes();
  openKnown("A.WAV");
  expectSound(75, 9);
}

TEST_F(Recall, WhatHasSettledIsRememberedWhileTheTakeIsOpen) {
  startOnTakes();
  openKnown("A.WAV");
  set(75, 9);
  auto* const timer = recall().findChild<QTimer*>("timerRemember");
  ASSERT_TRUE(timer->isActive());
  timer->start(0);
  waitFor(
      [] {
        std::error_code error;
        return std::filesystem::file_size(TakeMemory::defaultPath(), error) > 0 && !error;
      },
      "what is written");
}

TEST_F(Recall, WhatSomebodyTurnsMeanwhileStays) {
  startOnTakes();
  openKnown("A.WAV");
  set(75, 9);
  openKnown("B.WAV");
  set(40, 2);
  const auto turns =
      QObject::connect(&controller().take(), &TakeSession::opened, [this] { setGain(-20); });
  openKnown("A.WAV");
  expectSound(40, -20);  // the width, too, as it was
  QObject::disconnect(turns);
  openKnown("B.WAV");
  expectSound(40, 2);
  openKnown("A.WAV");
  expectSound(40, -20);
}

TEST_F(Recall, TurnedOffItIsAsEverAndKeepsNothing) {
  startOnTakes();
  view().menu->actionRemember->setChecked(false);
  open("A.WAV");
  set(60, -6);
  open("B.WAV");
  set(30, 4);
  open("A.WAV");
  expectSound(30, 4);
  end();
  EXPECT_FALSE(std::filesystem::exists(TakeMemory::defaultPath()));
  startOnTakes();
  EXPECT_FALSE(view().menu->actionRemember->isChecked()) << "the switch stays where it was left";
}

TEST_F(Recall, TurnedOnAgainItKeepsWhatIsHeard) {
  startOnTakes();
  openKnown("A.WAV");
  set(60, -6);
  view().menu->actionRemember->setChecked(false);
  set(90, 1);
  const QSignalSpy recalled(&recall(), &TakeRecall::recalled);
  view().menu->actionRemember->setChecked(true);
  waitFor([&] { return !recalled.empty(); }, "which take it is");
  expectSound(90, 1);
  openKnown("B.WAV");
  set(30, 2);
  openKnown("A.WAV");
  expectSound(90, 1);
}

TEST_F(Recall, ATakeThatHasNoWidthLeavesTheDial) {
  startOnTakes();
  openKnown("A.WAV");
  set(60, -6);
  openKnown("Plain.WAV");
  setGain(12);
  openKnown("B.WAV");
  set(100, 0);
  openKnown("Plain.WAV");
  expectSound(100, 12);
}

TEST_F(Recall, TakesThatAreExportedTogetherMayBeAsEachWasHeardLast) {
  startOnTakes();
  openKnown("A.WAV");
  set(60, -6);
  openKnown("B.WAV");
  set(30, 4);
  openKnown("Plain.WAV");
  setGain(12);
  const auto orders = ordersOfAll();
  ASSERT_EQ(3U, orders.size());
  EXPECT_EQ(60, orders[0].angle);
  EXPECT_EQ(-6, orders[0].gain);
  EXPECT_EQ(30, orders[1].angle);
  EXPECT_EQ(4, orders[1].gain);
  EXPECT_EQ(12, orders[2].gain) << "that it is open at, written down or not";
}

TEST_F(Recall, ADamagedMemoryIsToldAndANewOneBegun) {
  startOnDamage();
  openKnown("A.WAV");
  EXPECT_TRUE(said().contains("takes.db.damaged")) << said().toStdString();
  set(75, 9);
  openKnown("B.WAV");
  EXPECT_EQ(said(), "") << "told once";
  set(30, 0);
  openKnown("A.WAV");
  expectSound(75, 9);
}

TEST_F(Recall, ADamagedMemoryIsToldWhereNothingIsOpened) {
  startOnDamage();
  waitForMessage();
  EXPECT_TRUE(said().contains("takes.db.damaged")) << said().toStdString();
  openKnown("A.WAV");
  EXPECT_TRUE(said().contains("takes.db.damaged")) << "it stays while the first take is open";
  openKnown("B.WAV");
  EXPECT_EQ(said(), "") << "told once";
}

TEST_F(Recall, AMemoryOfANewerVersionIsToldOnceHoweverOftenItIsAsked) {
  rememberSomething();
  makeNewer(TakeMemory::defaultPath());
  startOnTakes();
  waitForMessage();
  EXPECT_TRUE(said().contains("newer version")) << said().toStdString();
  openKnown("A.WAV");
  openKnown("B.WAV");
  EXPECT_EQ(said(), "");
  const QSignalSpy passes(controller().findChild<RowReader*>(), &RowReader::finished);
  take("C.WAV");
  refresh();
  waitFor([&] { return !passes.empty(); }, "the end of the pass");
  EXPECT_EQ(said(), "");
}

TEST_F(Recall, AMemoryThatIsLockedIsToldWhereNothingIsOpened) {
  rememberSomething();
  const LockedMemory locked(TakeMemory::defaultPath());
  startOnTakes();
  waitForMessage();
  EXPECT_EQ(said(), "What takes were heard with cannot be remembered.");
}

TEST_F(Recall, AMemoryOfANewerVersionIsToldAndTheTakePlays) {
  rememberSomething();
  makeNewer(TakeMemory::defaultPath());
  startOnTakes();
  openKnown("A.WAV");
  EXPECT_EQ(said(),
            "What is remembered of takes is of a newer version of the program. It is left alone, "
            "and nothing is remembered.");
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
}

TEST_F(Recall, AMemoryThatIsLockedIsToldAndTheTakePlays) {
  rememberSomething();
  const LockedMemory locked(TakeMemory::defaultPath());
  startOnTakes();
  openKnown("A.WAV");
  EXPECT_EQ(said(), "What takes were heard with cannot be remembered.");
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
  view().menu->actionRemember->setChecked(false);
  EXPECT_EQ(said(), "") << "nothing is to be remembered";
  view().menu->actionRemember->setChecked(true);
  set(30, 4);
  openKnown("B.WAV");
  expectSound(30, 4);
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
}

// The list has its rows, too.
TEST_F(Recall, AMemoryThatIsLockedIsToldAndTakesAreExportedTogether) {
  rememberSomething();
  const LockedMemory locked(TakeMemory::defaultPath());
  startOnTakes();
  const BatchDialog& dialog = askForAll();
  EXPECT_FALSE(rememberedOf(dialog).isVisible());
  waitForMessage();
  EXPECT_EQ(said(), "What takes were heard with cannot be remembered.");
  QTest::mouseClick(&beginOf(dialog), Qt::LeftButton);
  waitFor([this] { return !controller().exportQueue().isBusy(); }, "the end");
  for (const char* const name : {"A_Decode.WAV", "B_Decode.WAV", "Plain_Decode.WAV"}) {
    EXPECT_TRUE(std::filesystem::exists(takes.path() / name)) << name;
  }
  const auto* const rows = view().browser->tableFile->model();
  const auto isMarked = [&] {
    return rows->index(rowOf("A.WAV"), 0).data(FileListModel::kExportedRole).toBool();
  };
  waitFor(isMarked, "that it was exported");
}

}  // namespace
