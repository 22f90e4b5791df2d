// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <thread>

#include "WindowFixture.h"
#include "base/EB.h"
#include "controls/Colors.h"
#include "controls/J4SliderCell.h"
#include "controls/PlainText.h"
#include "dialogs/ExportVC.h"
#include "support/WaveBytes.h"

namespace {

class Playback : public WindowFixture {
 protected:
  void expectIdle() const {
    EXPECT_EQ(view().player->lblFileName->text(), "");
    EXPECT_EQ(view().player->lblTimeCurrent->text(), "--:--:--");
    EXPECT_EQ(view().player->lblTimeTotal->text(), "--:--:--");
    for (const QWidget* const control : std::initializer_list<const QWidget*>{
             view().player->btnPlayPause, view().player->btnExport, view().player->sliderTime,
             stage().sliderGain, stage().imgDevice}) {
      EXPECT_FALSE(control->isEnabled());
    }
    EXPECT_FALSE(view().player->sliderTime->cell()->sliderEnabled());
    EXPECT_FALSE(stage().sliderGain->cell()->sliderEnabled());
    EXPECT_EQ(view().player->sliderTime->value(), 0.0);
    EXPECT_FALSE(stage().sliderStereo->enable());
    EXPECT_FALSE(stage().tickOfGain->enable());
    EXPECT_EQ(alphaOf(*stage().lblStereo), 128);
    EXPECT_EQ(alphaOf(*stage().lblGain), 128);
    EXPECT_EQ(alphaOf(*stage().lblLevel), 128);
    EXPECT_LT(alphaOf(*view().player->lblTimeCurrent), 255);
  }
  /// Buffers that are full are played as they were filled.
  void letTurnBeHeard() {
    play(400);
    letLevelsArrive();
    controller().updateLevelMeter(1.0 / 30.0);
    play(40);
  }
  static int alphaOf(const QLabel& label) {
    return label.palette().color(QPalette::WindowText).alpha();
  }
  [[nodiscard]] QTimer* timer(const char* name) { return controller().findChild<QTimer*>(name); }
  /// Where a position slider's knob stands for a fraction.
  [[nodiscard]] QPointF onTime(double fraction) const {
    const double radius = 9.0;
    const Slider& slider = *view().player->sliderTime;
    return {radius + fraction * (slider.width() - 2 * radius), slider.height() / 2.0};
  }
  [[nodiscard]] QString playName() const { return view().player->btnPlayPause->accessibleName(); }
};

TEST_F(Playback, IsIdleAtFirst) {
  startOnTakes();
  expectIdle();
  EXPECT_EQ(playName(), "Play");
  EXPECT_EQ(view().player->sliderVolume->value(), 0.5);
  EXPECT_TRUE(view().player->sliderVolume->cell()->sliderEnabled());
  EXPECT_EQ(view().player->sliderTime->maximum(), 100.0);
  EXPECT_EQ(stage().sliderGain->minimum(), -36.0);
  EXPECT_EQ(stage().sliderGain->maximum(), 36.0);
  EXPECT_EQ(stage().lvlLeft->maxValue(), 54);
  EXPECT_FALSE(stage().tickOfLevel->enable()) << "nothing has a level";
  EXPECT_EQ(stage().tickOfGain->texts().join(u' '), "+36 +24 +12 0 -12 -24 -36");
  EXPECT_EQ(stage().tickOfLevel->texts().join(u' '), "+6 0 -6 -12 -18 -24 -36 -48");
}

TEST_F(Playback, ButtonsWithoutAFileDoNothing) {
  startOnTakes();
  controller().btnPlay_Click();
  controller().btnExport_Click();
  controller().sliderTimeValueChanged(AdjustCause::Release);
  controller().updateLevelMeter(0.1);
  controller().sliderTimerUpdate();
  controller().updatePlayStateUI();
  EB::FIRE(EB::kPlayFinish);
  expectIdle();
  EXPECT_EQ(shown<ExportVC>(), nullptr);
}

TEST_F(Playback, ANameThatLooksLikeMarkupIsShownAsItIs) {
  take("<b>one<b>.WAV");
  startOnTakes();
  open("<b>one<b>.WAV");
  EXPECT_EQ(view().player->lblFileName->toolTip(), PlainText::of("<b>one<b>.WAV"));
}

TEST_F(Playback, DoubleClickOpensAndPlays) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
  EXPECT_EQ(view().player->lblFileName->text(), "R0001.WAV");
  EXPECT_EQ(view().player->lblFormat->text(), "Raw M/S · 24-bit · 48 kHz");
  EXPECT_EQ(view().player->lblTimeTotal->text(), "00:00:10");
  EXPECT_EQ(view().player->lblTimeCurrent->text(), "00:00:00");
  EXPECT_EQ(view().player->sliderTime->maximum(), 1.0);
  EXPECT_EQ(playName(), "Pause");
  EXPECT_TRUE(stage().sliderStereo->enable());
  EXPECT_TRUE(stage().imgDevice->isEnabled());
  EXPECT_TRUE(stage().tickOfGain->enable());
  EXPECT_EQ(alphaOf(*stage().lblStereo), 255);
  EXPECT_EQ(alphaOf(*stage().lblGain), 255);
  EXPECT_EQ(alphaOf(*stage().lblLevel), 255);
  EXPECT_EQ(alphaOf(*view().player->lblTimeCurrent), 255);
  EXPECT_EQ(timer("timerUpdateCurrentTime")->interval(), 200);
  EXPECT_EQ(timer("timerLevel")->interval(), 33);
  EXPECT_TRUE(timer("timerLevel")->isActive());
  EXPECT_EQ(player().volume(), 0.5);
}

TEST_F(Playback, StereoFileKeepsTheDialDisabledAndItsAngle) {
  take("MS.WAV");
  take("LR.WAV", 480'000, false, true);
  startOnTakes();
  open("MS.WAV");
  stage().sliderStereo->setNewAngle(90.7);
  EXPECT_EQ(player().angle(), 90);
  EXPECT_EQ(stage().lblStereoValue->text(), "90°");
  open("LR.WAV");
  EXPECT_EQ(view().player->lblFormat->text(), "Stereo · 32-bit float · 48 kHz");
  EXPECT_FALSE(stage().sliderStereo->enable());
  EXPECT_FALSE(stage().imgDevice->isEnabled());
  EXPECT_EQ(alphaOf(*stage().lblStereo), 128);
  EXPECT_EQ(alphaOf(*stage().lblGain), 255);
  EXPECT_EQ(player().angle(), 90);
}

TEST_F(Playback, WhatIsHeardFollowsDialGainAndVolume) {
  take("R0001.WAV");
  startOnTakes();
  view().player->sliderVolume->setValue(1.0);
  open("R0001.WAV");
  play(1000);
  // Mono is the middle alone, on both sides.
  EXPECT_NEAR(output->played()[90'000], 0.5F, 1e-5);
  EXPECT_NEAR(output->played()[90'001], 0.5F, 1e-5);
  setGain(-6.0);
  stage().sliderStereo->setNewAngle(90.0);
  play(1000);
  const auto& played = output->played();
  EXPECT_LT(played[played.size() - 2], 0.5F);
  EXPECT_NE(played[played.size() - 1], played[played.size() - 2]);
}

TEST_F(Playback, TimeAndSliderFollowThePlayer) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  play(2500);
  controller().sliderTimerUpdate();
  EXPECT_EQ(view().player->lblTimeCurrent->text(), "00:00:02");
  EXPECT_NEAR(view().player->sliderTime->value(), 0.25, 0.01);
}

TEST_F(Playback, LevelsAreMeasuredAsTheyAreHeard) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  letLevelsArrive();
  controller().updateLevelMeter(1.0 / 30.0);
  // 20 log10(0.5) + 48 = 41.98.
  EXPECT_EQ(stage().lvlLeft->level(), 42);
  EXPECT_EQ(stage().lvlRight->level(), 42);
  setGain(6.0);
  letTurnBeHeard();
  controller().updateLevelMeter(1.0 / 30.0);
  EXPECT_EQ(stage().lvlLeft->level(), 48);
  setGain(36.0);
  letTurnBeHeard();
  controller().updateLevelMeter(1.0 / 30.0);
  EXPECT_EQ(stage().lvlLeft->level(), 54) << "the highest that a meter shows";
}

TEST_F(Playback, LevelsShowWhatIsLeftAndRightAtTheAngleOfTheDial) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  letLevelsArrive();
  stage().sliderStereo->setNewAngle(120.0);
  letTurnBeHeard();
  controller().updateLevelMeter(1.0 / 30.0);
  EXPECT_EQ(stage().lvlLeft->level(), 46) << "20 log10(0.75) + 48 = 45.50";
  EXPECT_EQ(stage().lvlRight->level(), 36) << "20 log10(0.25) + 48 = 35.96";
}

TEST_F(Playback, SilenceIsTheLowestLevel) {
  takes.file(
      "S.WAV",
      WaveBytes().bext("TARN J4", "MSRAW=OF").format24().data(WaveBytes::Bytes(60'000)).get());
  startOnTakes();
  open("S.WAV");
  letLevelsArrive();
  controller().updateLevelMeter(1.0 / 30.0);
  EXPECT_EQ(stage().lvlLeft->level(), 0);
}

TEST_F(Playback, LevelsStandWhereThereIsNothingToMeasure) {
  take("LR.WAV", 480'000, false);
  startOnTakes();
  open("LR.WAV");
  letLevelsArrive();
  stage().lvlLeft->setLevel(17);
  player().setPosition(1.0);
  stage().lvlLeft->setLevel(17);
  controller().updateLevelMeter(1.0 / 30.0);
  EXPECT_EQ(stage().lvlLeft->level(), 17);
}

TEST_F(Playback, LevelCallOfThePlayerShowsItsMagnitude) {
  startOnTakes();
  controller().WavePlayerLevelChanged(0.1, -0.5);
  EXPECT_EQ(stage().lvlLeft->level(), 20);
  EXPECT_EQ(stage().lvlRight->level(), 6);
  controller().WavePlayerLevelChanged(0.0, 1.0);
  EXPECT_EQ(stage().lvlLeft->level(), 54);
  EXPECT_EQ(stage().lvlRight->level(), 0);
}

TEST_F(Playback, SpaceAndButtonToggle) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  QTest::keyClick(view().browser->tableFile, Qt::Key_Space);
  EXPECT_EQ(state(), PLAY_STATE_PAUSE);
  EXPECT_EQ(playName(), "Play");
  EXPECT_FALSE(timer("timerLevel")->isActive());
  EXPECT_EQ(stage().lvlLeft->level(), 0);
  QTest::mouseClick(view().player->btnPlayPause, Qt::LeftButton);
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
  view().player->btnPlayPause->setFocus();
  QTest::keyClick(view().player->btnPlayPause, Qt::Key_Space);
  EXPECT_EQ(state(), PLAY_STATE_PAUSE) << "toggled once, not twice";
}

TEST_F(Playback, SpaceThatBeganElsewhereOrRepeatsDoesNothing) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  QTest::keyRelease(view().browser->tableFile, Qt::Key_Space);
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
  QTest::keyPress(view().browser->tableFile, Qt::Key_Space);
  EXPECT_EQ(state(), PLAY_STATE_PLAY) << "the release counts";
  QKeyEvent repeat(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, " ", true);
  QApplication::sendEvent(&view(), &repeat);
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
  QTest::keyRelease(view().browser->tableFile, Qt::Key_Space);
  EXPECT_EQ(state(), PLAY_STATE_PAUSE);
}

TEST_F(Playback, ResumeAfterAChangeOfSoundStartsAtTheSlider) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  play(3000);
  controller().sliderTimerUpdate();
  controller().btnPlay_Click();
  const int outputs = outputsMade;
  const double before = player().curremtTime();
  controller().btnPlay_Click();
  EXPECT_DOUBLE_EQ(player().curremtTime(), before) << "without a change it goes on";
  controller().btnPlay_Click();
  setGain(3.0);
  view().player->sliderTime->setValue(0.5);
  controller().btnPlay_Click();
  EXPECT_NEAR(player().curremtTime(), 5.0, 0.01);
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
  EXPECT_EQ(outputsMade, outputs);
}

TEST_F(Playback, DraggingMovesOnlyTheTimeLabelUntilTheRelease) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  play(1000);
  controller().sliderTimerUpdate();
  Hands::press(*view().player->sliderTime, onTime(0.3));
  EXPECT_TRUE(view().player->sliderTime->isSeeking());
  Hands::move(*view().player->sliderTime, onTime(0.8));
  EXPECT_EQ(view().player->lblTimeCurrent->text(), "00:00:08");
  EXPECT_NEAR(player().curremtTime(), 1.0, 0.1);
  play(400);
  controller().sliderTimerUpdate();
  EXPECT_EQ(view().player->lblTimeCurrent->text(), "00:00:08");
  EXPECT_NEAR(view().player->sliderTime->value(), 0.8, 0.01);
  Hands::release(*view().player->sliderTime, onTime(0.8));
  EXPECT_FALSE(view().player->sliderTime->isSeeking());
  EXPECT_NEAR(player().curremtTime(), 8.0, 0.05);
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
}

TEST_F(Playback, DragThatOutlastsTheTakeGoesWhereItIsLetGo) {
  take("a.WAV", 48'000);
  startOnTakes();
  open("a.WAV");
  Hands::press(*view().player->sliderTime, onTime(0.0));
  Hands::move(*view().player->sliderTime, onTime(0.5));
  play(2000);
  ASSERT_EQ(state(), PLAY_STATE_FINISH);
  Hands::release(*view().player->sliderTime, onTime(0.5));
  EXPECT_NEAR(player().curremtTime(), 0.5, 0.05);
}

TEST_F(Playback, DragThatADialogEndsLeavesNothingStanding) {
  take("a.WAV");
  startOnTakes();
  open("a.WAV");
  Hands::press(*view().player->sliderTime, onTime(0.3));
  controller().showNoDevice();
  EXPECT_FALSE(view().player->sliderTime->isSeeking());
  EXPECT_NEAR(player().curremtTime(), 3.0, 0.2);
}

TEST_F(Playback, KeysSeekAtOnce) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  QTest::keyClick(view().player->sliderTime, Qt::Key_Right);
  EXPECT_NEAR(player().curremtTime(), 1.0, 0.05);
  EXPECT_FALSE(view().player->sliderTime->isSeeking());
  QTest::keyClick(view().player->sliderTime, Qt::Key_End);
  EXPECT_EQ(state(), PLAY_STATE_FINISH);
}

TEST_F(Playback, EndOfTheFileIsReadyToBeReplayed) {
  take("R0001.WAV", 48'000);
  startOnTakes();
  open("R0001.WAV");
  play(1500);
  EXPECT_EQ(state(), PLAY_STATE_FINISH);
  EXPECT_EQ(playName(), "Play");
  EXPECT_EQ(view().player->lblTimeCurrent->text(), "00:00:00");
  EXPECT_EQ(view().player->sliderTime->value(), 0.0);
  EXPECT_FALSE(timer("timerUpdateCurrentTime")->isActive());
  EXPECT_TRUE(view().player->btnPlayPause->isEnabled());
  controller().btnPlay_Click();
  EXPECT_EQ(state(), PLAY_STATE_PLAY);
  EXPECT_NEAR(player().curremtTime(), 0.0, 0.01);
}

TEST_F(Playback, AFileWithoutFramesEndsAtOnceAndStaysLoaded) {
  take("R0001.WAV", 0);
  startOnTakes();
  open("R0001.WAV");
  play(200);
  EXPECT_EQ(state(), PLAY_STATE_FINISH);
  EXPECT_EQ(view().player->sliderTime->value(), 0.0);
}

TEST_F(Playback, VolumeShowsAndMutes) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  const auto cacheKey = [this] { return view().player->btnVolume->icon().cacheKey(); };
  const auto half = cacheKey();
  QTest::mouseClick(view().player->btnVolume, Qt::LeftButton);
  EXPECT_TRUE(controller().isMuteVolume());
  EXPECT_EQ(view().player->sliderVolume->value(), 0.0);
  EXPECT_EQ(player().volume(), 0.0);
  EXPECT_NE(cacheKey(), half);
  QTest::mouseClick(view().player->btnVolume, Qt::LeftButton);
  EXPECT_FALSE(controller().isMuteVolume());
  EXPECT_EQ(view().player->sliderVolume->value(), 0.5);
  EXPECT_EQ(player().volume(), 0.5);
}

TEST_F(Playback, DraggingToZeroMutesAndTheSpeakerRestoresWhereTheDragBegan) {
  take("R0001.WAV");
  startOnTakes();
  open("R0001.WAV");
  Slider& slider = *view().player->sliderVolume;
  const auto at = [&](double fraction) {
    return QPointF(9.0 + fraction * (slider.width() - 18.0), slider.height() / 2.0);
  };
  Hands::press(slider, at(0.75));
  const double begun = slider.value();
  EXPECT_NEAR(begun, 0.75, 0.01);
  Hands::move(slider, at(0.2));
  EXPECT_NEAR(player().volume(), 0.2, 0.01);
  Hands::move(slider, at(-1.0));
  Hands::release(slider, at(-1.0));
  EXPECT_TRUE(controller().isMuteVolume());
  EXPECT_EQ(player().volume(), 0.0);
  QTest::mouseClick(view().player->btnVolume, Qt::LeftButton);
  EXPECT_EQ(slider.value(), begun);
  EXPECT_EQ(player().volume(), begun);
}

TEST_F(Playback, KeysToZeroMuteAndTheSpeakerRestoresWhatWasHeard) {
  startOnTakes();
  QTest::keyClick(view().player->sliderVolume, Qt::Key_Home);
  EXPECT_TRUE(controller().isMuteVolume());
  QTest::mouseClick(view().player->btnVolume, Qt::LeftButton);
  EXPECT_EQ(view().player->sliderVolume->value(), 0.5);
}

TEST_F(Playback, MutedStaysMutedInTheNextFile) {
  take("a.WAV");
  startOnTakes();
  QTest::mouseClick(view().player->btnVolume, Qt::LeftButton);
  open("a.WAV");
  EXPECT_EQ(player().volume(), 0.0);
}

TEST_F(Playback, GainLabelsJumpWhileAFileIsLoaded) {
  take("a.WAV");
  startOnTakes();
  const auto clickLabel = [this](const QString& text) {
    for (const TickTextInfo& label : stage().tickOfGain->textRectList()) {
      if (label.text() != text) continue;
      const QPointF centre = label.frame().center();
      Hands::click(*stage().tickOfGain, {centre.x(), stage().tickOfGain->height() - centre.y()});
    }
  };
  stage().tickOfGain->grab();
  clickLabel("+24");
  EXPECT_EQ(stage().sliderGain->value(), 0.0) << "no file";
  open("a.WAV");
  for (const auto& [text, gain] : {std::pair{"+36", 36},
                                   {"+24", 24},
                                   {"+12", 12},
                                   {"0", 0},
                                   {"-12", -12},
                                   {"-24", -24},
                                   {"-36", -36}}) {
    clickLabel(QString::fromLatin1(text));
    EXPECT_EQ(stage().sliderGain->value(), gain);
    EXPECT_EQ(player().gain(), gain);
  }
  EXPECT_EQ(stage().lblGainValue->text(), "−36 dB");
  controller().GainTickTitle(stage().tickOfLevel, "+6");
  EXPECT_EQ(stage().sliderGain->value(), -36.0) << "another scale";
}

TEST_F(Playback, DoubleClickOnTheGainKnobResets) {
  take("a.WAV");
  startOnTakes();
  open("a.WAV");
  setGain(12.0);
  const QPointF knob = stage().sliderGain->knobRect().center();
  Hands::doubleClick(*stage().sliderGain, knob);
  EXPECT_EQ(stage().sliderGain->value(), 0.0);
  EXPECT_EQ(player().gain(), 0);
  EXPECT_EQ(stage().lblGainValue->text(), "0 dB");
}

TEST_F(Playback, GainAndAngleCarryOverToTheNextFile) {
  take("a.WAV");
  take("b.WAV");
  startOnTakes();
  open("a.WAV");
  setGain(-5.5);
  stage().sliderStereo->setNewAngle(33.9);
  open("b.WAV");
  EXPECT_EQ(player().gain(), -5);
  EXPECT_EQ(player().angle(), 33);
  EXPECT_EQ(player().fileUrl(), (takes.path() / "b.WAV").string());
}

TEST_F(Playback, UnsupportedFileUnloadsAndSaysSo) {
  take("a.WAV");
  file("b.wav");
  startOnTakes();
  open("a.WAV");
  waitForTake([this] { doubleClickRow("b.wav"); });
  EXPECT_EQ(controller().wavPlayer(), nullptr);
  EXPECT_EQ(controller().exportJob(), nullptr);
  expectIdle();
  EXPECT_EQ(playName(), "Play");
  closeAlert("File not supported.");
  EXPECT_TRUE(view().player->lblStatus->text().startsWith("b.wav: "))
      << view().player->lblStatus->text().toStdString();
  open("a.WAV");
  EXPECT_EQ(view().player->lblStatus->text(), "");
}

TEST_F(Playback, LostOutputIsAQuietLineAndPlayTriesAgain) {
  take("a.WAV");
  startOnTakes();
  open("a.WAV");
  play(500);
  output->lose("The sound server has ended.");
  play(20);
  EXPECT_EQ(view().player->lblStatus->text(),
            "Paused: The sound server has ended. Press Play to try again.");
  EXPECT_EQ(state(), PLAY_STATE_PAUSE);
  EXPECT_EQ(playName(), "Play");
  QTest::mouseClick(view().player->btnPlayPause, Qt::LeftButton);
  EXPECT_EQ(view().player->lblStatus->text(), "");
  EXPECT_EQ(outputsMade, 2);
  play(100);
  EXPECT_GT(player().curremtTime(), 0.5);
}

TEST_F(Playback, LoadedTakeIsMarkedApartFromTheSelectedRow) {
  take("a.WAV");
  take("b.WAV");
  startOnTakes();
  open("a.WAV");
  clickRow("b.WAV");
  const FileList& list = *view().browser->tableFile;
  const auto isMarked = [&](const char* name) {
    return list.model()->index(rowOf(name), 0).data(FileListModel::kLoadedRole).toBool();
  };
  EXPECT_TRUE(isMarked("a.WAV"));
  EXPECT_FALSE(isMarked("b.WAV"));
  const QRect row = list.visualRect(list.model()->index(rowOf("a.WAV"), 0));
  const QImage picture = list.viewport()->grab(row).toImage();
  EXPECT_EQ(Hands::colorAt(picture, {1.5, row.height() / 2.0}), Colors::WHITE());
  open("b.WAV");
  EXPECT_FALSE(isMarked("a.WAV"));
  EXPECT_TRUE(isMarked("b.WAV"));
}

TEST_F(Playback, ExportGetsGainAngleAndFolder) {
  take("a.WAV");
  startOnTakes();
  open("a.WAV");
  setGain(4.9);
  stage().sliderStereo->setNewAngle(77.5);
  QTest::mouseClick(view().player->btnExport, Qt::LeftButton);
  auto* const dialog = shown<ExportVC>();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->exporter(), controller().exportJob());
  EXPECT_EQ(dialog->exporter()->gain(), 4.0);
  EXPECT_EQ(dialog->exporter()->angle(), 77.5);
  EXPECT_EQ(dialog->exporter()->getDirPath(), takes.path());
  EXPECT_EQ(dialog->parentFrame(), view().frameGeometry());
  dialog->close();
  EXPECT_FALSE(view().player->btnExport->hasFocus()) << "a ring would stay on it";
}

TEST_F(Playback, NewExportIsListedAndSelectedAndAFailedOneIsToldQuietly) {
  const auto source = take("a.WAV", 1000);
  startOnTakes();
  open("a.WAV");
  controller().btnExport_Click();
  emit shown<ExportVC>()->ordered({.source = source, .target = takes.path() / "a_Decode.WAV"});
  waitFor([this] { return selected() == "a_Decode.WAV"; }, "the new file");
  emit shown<ExportVC>()->ordered({.source = source, .target = takes.path() / "none/b.WAV"});
  waitFor([] { return shown<QMessageBox>() != nullptr; }, "the alert");
  EXPECT_THAT(view().player->lblStatus->text().toStdString(), testing::HasSubstr("No such file"));
  closeAlert("Fail to save.");
}

TEST_F(Playback, FailedExportIsForgottenWithTheNextTakeAndNamesItsOwn) {
  const auto source = take("a.WAV", 1000);
  take("b.WAV", 1000);
  startOnTakes();
  open("a.WAV");
  controller().btnExport_Click();
  std::filesystem::remove(source);
  emit shown<ExportVC>()->ordered({.source = source, .target = takes.path() / "a_Decode.WAV"});
  waitFor([] { return shown<QMessageBox>() != nullptr; }, "the alert");
  const std::string status = view().player->lblStatus->text().toStdString();
  EXPECT_THAT(status, testing::StartsWith("a.WAV was not exported: "));
  EXPECT_THAT(status, testing::Not(testing::HasSubstr("No recording is open")));
  closeAlert("Fail to save.");
  open("b.WAV");
  EXPECT_EQ(view().player->lblStatus->text(), "");
}

TEST_F(Playback, MessageOfTheSoundSystemGoesWithTheTake) {
  take("a.WAV");
  startOnTakes();
  open("a.WAV");
  play(100);
  output->lose("The sound server has ended.");
  play(20);
  controller().take().close();
  EXPECT_EQ(view().player->lblStatus->text(), "");
}

}  // namespace
