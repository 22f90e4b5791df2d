// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QMessageBox>
#include <QTest>
#include <array>
#include <random>

#include "WindowFixture.h"
#include "controls/J4SliderCell.h"
#include "dialogs/DialogWindow.h"

namespace {

/// Someone who presses everything in no order at all.
class Soak : public WindowFixture {
 protected:
  int upTo(int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); }
  QPointF somewhereOn(const QWidget& widget) {
    return {1.0 * upTo(widget.width()), 1.0 * upTo(widget.height())};
  }
  QWidget& anyControl() {
    const auto all = std::to_array<QWidget*>(
        {view().browser->tableFile->viewport(), view().browser->btnGoUp, view().player->sliderTime,
         view().player->sliderVolume, stage().sliderGain, stage().sliderStereo, stage().tickOfGain,
         stage().tickOfLevel, view().player->btnVolume, view().player->btnPlayPause,
         view().player->btnPlayPause, view().device->popupBattery, view().device->popupAutoPow,
         view().device->listBatteryCover, view().player->btnExport, stage().sliderStereo,
         view().player->sliderTime, stage().lvlLeft});
    return *all[static_cast<std::size_t>(upTo(static_cast<int>(all.size()) - 1))];
  }

  void pointer() {
    QWidget& control = anyControl();
    if (!control.isEnabled() || !control.isVisible()) return;
    Hands::press(control, somewhereOn(control));
    for (int moves = upTo(3); moves > 0; --moves) Hands::move(control, somewhereOn(control));
    if (upTo(5) == 0) play(10);
    Hands::release(control, somewhereOn(control));
  }
  void key() {
    static constexpr std::array<Qt::Key, 11> kKeys = {
        Qt::Key_Space, Qt::Key_Return, Qt::Key_Up,     Qt::Key_Down, Qt::Key_Left, Qt::Key_Right,
        Qt::Key_Home,  Qt::Key_End,    Qt::Key_PageUp, Qt::Key_Tab,  Qt::Key_F5};
    QWidget* const focus = QApplication::focusWidget();
    QTest::keyClick(focus == nullptr ? &view() : focus,
                    kKeys[static_cast<std::size_t>(upTo(kKeys.size() - 1))]);
  }
  void wheel() {
    QWidget& control = anyControl();
    Hands::wheel(control, 120 * (upTo(4) - 2), upTo(1) == 0 ? Qt::NoModifier : Qt::ShiftModifier);
  }
  void openSomething() {
    const auto names = rows();
    if (names.empty()) return;
    clickRow(names[static_cast<std::size_t>(upTo(static_cast<int>(names.size()) - 1))]);
    controller().table_cell_double_click();
  }
  void disk() {
    const std::string name = "S" + std::to_string(upTo(5)) + ".WAV";
    if (upTo(1) == 0) {
      take(name, static_cast<std::uint32_t>(upTo(20'000)), upTo(1) == 0, upTo(1) == 0);
    } else {
      std::filesystem::remove(takes.path() / name);
    }
    refresh();
  }
  // Not further: what else is on the machine is not to be touched.
  void goUp() {
    if (controller().urlOfFileList() != takes.path()) controller().btnGoUp_Click();
  }
  void recorder() {
    link.isPluggedIn() ? pullOut() : plugIn();
    midiClock->advance(0.1 * upTo(20));
  }
  void time() {
    play(10 * upTo(60));
    controller().sliderTimerUpdate();
    controller().updateLevelMeter(1.0 / 30.0);
  }
  void sound() {
    if (controller().wavPlayer() != nullptr && state() == PLAY_STATE_PLAY) output->lose("lost");
    play(20);
  }
  /// Whatever has opened over the window is closed.
  void tidy() {
    while (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
    while (QWidget* const modal = QApplication::activeModalWidget()) modal->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void act() {
    using Action = void (Soak::*)();
    static constexpr auto kActions = std::to_array<Action>(
        {&Soak::pointer, &Soak::pointer, &Soak::pointer, &Soak::pointer, &Soak::key, &Soak::key,
         &Soak::key, &Soak::wheel, &Soak::openSomething, &Soak::openSomething, &Soak::disk,
         &Soak::time, &Soak::time, &Soak::recorder, &Soak::sound, &Soak::goUp, &Soak::goUp});
    (this->*kActions[static_cast<std::size_t>(upTo(kActions.size() - 1))])();
    waitFor(
        [this] {
          return controller().folderHelper()->folderPath() == controller().urlOfFileList() &&
                 controller().take().state() != TakeSession::State::Opening &&
                 !controller().browser().isLooking();
        },
        "the folder or take that was opened");
  }

  void expectConsistent(int step) {
    const bool hasFile = controller().wavPlayer() != nullptr;
    stepsWithFile += hasFile ? 1 : 0;
    ASSERT_EQ(hasFile, controller().exportJob() != nullptr) << step;
    ASSERT_EQ(hasFile, view().player->btnPlayPause->isEnabled()) << step;
    ASSERT_EQ(hasFile, view().player->sliderTime->isEnabled()) << step;
    ASSERT_EQ(hasFile, stage().sliderGain->cell()->sliderEnabled()) << step;
    ASSERT_EQ(hasFile, !view().player->lblFileName->text().isEmpty()) << step;
    if (!hasFile) return;
    const bool isPlaying = state() == PLAY_STATE_PLAY;
    stepsPlaying += isPlaying ? 1 : 0;
    ASSERT_EQ(view().player->btnPlayPause->accessibleName(), isPlaying ? "Pause" : "Play") << step;
    ASSERT_EQ(stage().sliderStereo->enable(), controller().exportJob()->reader()->isBoMSFormat());
    ASSERT_EQ(player().gain(), stage().sliderGain->integerValue()) << step;
    ASSERT_EQ(player().angle(), static_cast<std::int64_t>(stage().sliderStereo->angle())) << step;
    ASSERT_EQ(player().volume(), view().player->sliderVolume->value()) << step;
    ASSERT_TRUE(!controller().isMuteVolume() || view().player->sliderVolume->value() == 0.0)
        << step;
  }

  std::mt19937 random{20'261'121};
  int stepsWithFile = 0;
  int stepsPlaying = 0;
};

TEST_F(Soak, SurvivesTwoThousandActions) {
  constexpr int kActions = 2000;
  take("R0001.WAV", 48'000);
  take("R0002.WAV", 30'000, false, true);
  file("broken.wav");
  folder("Bells");
  startOnTakes();
  view().browser->btnGoUp->setEnabled(false);  // see goUp
  for (int step = 0; step < kActions; ++step) {
    act();
    tidy();
    QCoreApplication::processEvents();
    expectConsistent(step);
    if (HasFatalFailure()) return;
  }
  EXPECT_GT(stepsWithFile, kActions / 4) << "or it was no soak";
  EXPECT_GT(stepsPlaying, kActions / 8);
  EXPECT_GT(outputsMade, 100);
  EXPECT_GT(link.recorder().received().size(), 100U);
}

}  // namespace
