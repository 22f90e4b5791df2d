// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QAccessible>
#include <QMessageBox>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <utility>

#include "TakeFixture.h"
#include "app/LevelFeed.h"
#include "app/SoundPane.h"
#include "app/TakeMessages.h"
#include "app/TransportPane.h"
#include "cli/DemoScene.h"
#include "controls/Artwork.h"
#include "controls/J4SliderCell.h"
#include "gui/controls/Hands.h"
#include "support/SlowReads.h"

namespace {

using State = TakeSession::State;

class Transport : public TakeFixture {
 protected:
  PlayerView view;
  std::unique_ptr<TransportPane> pane = std::make_unique<TransportPane>(view, *session);

  void TearDown() override {
    pane.reset();
    TakeFixture::TearDown();
  }
  /// Moves the position slider as a hand does.
  void move(double position, AdjustCause cause) {
    view.sliderTime->setValue(position);
    pane->positionAdjusted(cause);
  }
};

TEST_F(Transport, ShowsTheTakeAndIsIdleWithoutOne) {
  EXPECT_FALSE(view.btnPlayPause->isEnabled());
  EXPECT_EQ(view.lblFormat->text(), "Double-click a recording to play it");
  EXPECT_EQ(view.lblTimeTotal->text(), "--:--:--");
  EXPECT_EQ(view.sliderTime->maximum(), 100.0);
  open("a.WAV");
  EXPECT_EQ(view.lblFileName->text(), "a.WAV");
  EXPECT_EQ(view.lblFormat->text(), "Raw M/S · 24-bit · 48 kHz");
  EXPECT_EQ(view.lblTimeTotal->text(), "00:00:10");
  EXPECT_EQ(view.sliderTime->maximum(), 1.0);
  EXPECT_TRUE(view.sliderTime->cell()->sliderEnabled());
  EXPECT_EQ(view.btnPlayPause->accessibleName(), "Pause");
  session->close();
  EXPECT_EQ(view.lblFormat->text(), "Double-click a recording to play it");
  EXPECT_EQ(view.lblFileName->text(), "");
  EXPECT_EQ(view.lblTimeCurrent->text(), "--:--:--");
  EXPECT_FALSE(view.sliderTime->isEnabled());
  EXPECT_EQ(view.btnPlayPause->accessibleName(), "Play");
}

TEST_F(Transport, TimerRunsWhileItPlays) {
  const auto* const timer = pane->findChild<QTimer*>("timerUpdateCurrentTime");
  open("a.WAV");
  EXPECT_TRUE(timer->isActive());
  EXPECT_EQ(timer->interval(), 200);
  pane->playOrPause();
  EXPECT_FALSE(timer->isActive());
  pane->playOrPause();
  session->close();
  EXPECT_FALSE(timer->isActive());
}

TEST_F(Transport, FollowsThePlayerUnlessItIsHeld) {
  open("a.WAV");
  play(3000);
  pane->refresh();
  EXPECT_NEAR(view.sliderTime->value(), 0.3, 0.01);
  EXPECT_EQ(view.lblTimeCurrent->text(), "00:00:03");
  view.sliderTime->setIsSeeking(true);
  move(0.8, AdjustCause::Drag);
  pane->refresh();
  EXPECT_EQ(view.sliderTime->value(), 0.8);
  EXPECT_EQ(view.lblTimeCurrent->text(), "00:00:08");
  EXPECT_NEAR(session->time(), 3.0, 0.1) << "moved by the release";
  move(0.8, AdjustCause::Release);
  EXPECT_NEAR(session->time(), 8.0, 0.05);
  EXPECT_FALSE(view.sliderTime->isSeeking());
}

TEST_F(Transport, GoesOnAtTheSliderWhereTheSoundWasChanged) {
  open("a.WAV");
  play(1000);
  pane->playOrPause();
  view.sliderTime->setValue(0.5);
  pane->playOrPause();
  EXPECT_NEAR(session->time(), 1.0, 0.1) << "nothing was changed";
  pane->playOrPause();
  view.sliderTime->setValue(0.5);
  session->setAngle(60.0);
  pane->playOrPause();
  EXPECT_NEAR(session->time(), 5.0, 0.05);
  EXPECT_EQ(session->state(), State::Playing);
}

// The loop has turned since the timer looked at it last.
TEST_F(Transport, GoesOnInsideTheLoopAfterItsTurn) {
  open("a.WAV");
  session->setLoop(FrameLoop{0, kRate / 2});
  session->seek(0.045);
  play(20);
  pane->refresh();
  pane->stopTimer();
  ASSERT_GT(view.sliderTime->value(), 0.04);
  play(200);
  pane->playOrPause();
  EXPECT_NEAR(view.sliderTime->value(), 0.017, 0.005);
  session->setAngle(60.0);
  pane->playOrPause();
  EXPECT_NEAR(session->time(), 0.17, 0.05);
}

TEST_F(Transport, IsReadyToBeginAgainAtTheEnd) {
  open("a.WAV");
  session->seek(0.98);
  play(1000);
  EXPECT_EQ(session->state(), State::Finished);
  EXPECT_EQ(view.sliderTime->value(), 0.0);
  EXPECT_EQ(view.lblTimeCurrent->text(), "00:00:00");
  EXPECT_EQ(view.btnPlayPause->accessibleName(), "Play");
  EXPECT_TRUE(view.btnPlayPause->isEnabled());
}

TEST_F(Transport, DisabledButtonPlaysNothing) {
  open("a.WAV");
  view.btnPlayPause->setEnabled(false);
  pane->playOrPause();
  EXPECT_EQ(session->state(), State::Playing);
}

class Sound : public TakeFixture {
 protected:
  PlayerView view;
  StageView& stage = *view.stage;
  std::unique_ptr<SoundPane> pane = std::make_unique<SoundPane>(view, *session);

  void TearDown() override {
    pane.reset();
    TakeFixture::TearDown();
  }
  void moveVolume(double volume, AdjustCause cause) {
    view.sliderVolume->setValue(volume);
    pane->volumeAdjusted(cause);
  }
  [[nodiscard]] QImage speaker() const { return drawn(view.btnVolume->icon()); }
  [[nodiscard]] QImage picture(const char* name) const { return drawn(Artwork::icon(name)); }
  [[nodiscard]] QImage drawn(const QIcon& icon) const {
    return icon.pixmap(view.btnVolume->iconSize()).toImage();
  }
};

TEST_F(Sound, IsIdleWithoutATake) {
  EXPECT_FALSE(stage.sliderGain->isEnabled());
  EXPECT_FALSE(stage.sliderStereo->enable());
  EXPECT_EQ(session->volume(), 0.5);
  open("a.WAV");
  EXPECT_TRUE(stage.sliderGain->isEnabled());
  EXPECT_TRUE(stage.sliderGain->cell()->sliderEnabled());
  EXPECT_TRUE(stage.sliderStereo->enable());
  EXPECT_TRUE(stage.imgDevice->isEnabled());
  open("b.WAV", false);
  EXPECT_FALSE(stage.sliderStereo->enable()) << "there is no width to choose";
  EXPECT_TRUE(stage.tickOfGain->enable());
  EXPECT_TRUE(stage.tickOfLevel->enable());
  session->close();
  EXPECT_FALSE(stage.tickOfGain->enable());
  EXPECT_FALSE(stage.tickOfLevel->enable());
}

TEST_F(Sound, ControlsAreWhatTheSessionHas) {
  open("a.WAV");
  stage.sliderStereo->setNewAngle(77.7);
  EXPECT_EQ(session->angle(), 77.7);
  EXPECT_EQ(stage.lblStereoValue->text(), "77°");
  stage.sliderGain->setValue(-8.0);
  pane->sliderGainValueChanged(stage.sliderGain);
  EXPECT_EQ(session->gain(), -8);
  EXPECT_EQ(stage.lblGainValue->text(), "−8 dB");
  pane->GainTickTitle(stage.tickOfGain, "+24");
  EXPECT_EQ(session->gain(), 24);
  pane->GainTickTitle(stage.tickOfLevel, "+6");
  pane->GainTickTitle(stage.tickOfGain, "+6");
  EXPECT_EQ(session->gain(), 24) << "another scale, and no label";
  moveVolume(0.75, AdjustCause::Drag);
  EXPECT_EQ(session->volume(), 0.75);
}

TEST_F(Sound, WhatTheControlsShowCarriesOver) {
  open("a.WAV");
  stage.sliderGain->setValue(4.9);
  stage.sliderStereo->setAngle(12.5);
  view.sliderVolume->setValue(0.125);
  open("b.WAV");
  EXPECT_EQ(session->gain(), 4);
  EXPECT_EQ(session->angle(), 12.5);
  EXPECT_EQ(session->volume(), 0.125);
}

TEST_F(Sound, MuteIsReadByOneNameAndItsState) {
  auto* const mute = QAccessible::queryAccessibleInterface(view.btnVolume);
  const auto isOn = [mute] { return mute->state().checkable && mute->state().checked; };
  EXPECT_EQ(mute->text(QAccessible::Name), "Mute");
  EXPECT_FALSE(isOn());
  view.btnVolume->click();
  EXPECT_TRUE(pane->isMuted());
  EXPECT_TRUE(isOn());
  EXPECT_EQ(mute->text(QAccessible::Name), "Mute");
  EXPECT_EQ(view.btnVolume->toolTip(), "Unmute");
  mute->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_FALSE(pane->isMuted());
  EXPECT_FALSE(isOn());
  EXPECT_EQ(view.sliderVolume->value(), 0.5);
  view.sliderVolume->adjust(0.4, AdjustCause::Key);
  EXPECT_FALSE(isOn());
  view.sliderVolume->adjust(0.0, AdjustCause::Key);
  EXPECT_TRUE(isOn());
}

TEST_F(Sound, MutesAndRestores) {
  pane->toggleMute();
  EXPECT_TRUE(pane->isMuted());
  EXPECT_EQ(session->volume(), 0.0);
  open("a.WAV");
  EXPECT_EQ(session->volume(), 0.0) << "stays muted";
  pane->toggleMute();
  EXPECT_EQ(session->volume(), 0.5);
  moveVolume(0.75, AdjustCause::Press);
  moveVolume(0.0, AdjustCause::Drag);
  moveVolume(0.0, AdjustCause::Release);
  EXPECT_TRUE(pane->isMuted());
  pane->toggleMute();
  EXPECT_EQ(session->volume(), 0.75) << "where the drag began";
  moveVolume(0.0, AdjustCause::Key);
  pane->toggleMute();
  EXPECT_EQ(session->volume(), 0.75) << "what was heard before the key";
}

TEST_F(Sound, SpeakerShowsThirds) {
  constexpr float kNone = 0.0F;
  constexpr float kThird = 0.33333334F;
  constexpr float kTwoThirds = 0.6666667F;
  const std::pair<float, const char*> wanted[] = {{kNone, "speaker_mute"},
                                                  {std::nextafter(kNone, 1.0F), "speaker_1"},
                                                  {std::nextafter(kThird, kNone), "speaker_1"},
                                                  {kThird, "speaker_2"},
                                                  {std::nextafter(kTwoThirds, kNone), "speaker_2"},
                                                  {kTwoThirds, "speaker_3"},
                                                  {1.0F, "speaker_3"}};
  for (const auto& [volume, name] : wanted) {
    pane->showVolume(volume);
    EXPECT_EQ(speaker(), picture(name)) << volume;
  }
  pane->toggleMute();
  pane->showVolume(1.0F);
  EXPECT_EQ(speaker(), picture("speaker_mute")) << "muted";
}

class Feed : public TakeFixture {
 protected:
  StageView view;
  std::unique_ptr<LevelFeed> feed = std::make_unique<LevelFeed>(view, *session);

  void TearDown() override {
    feed.reset();
    TakeFixture::TearDown();
  }
  /// What is set is heard from now on, not only once the buffers have been played that are full.
  void fillAnew() {
    session->seek(0);
    while (!session->job()->reader()->follow(0, 0.5)) std::this_thread::yield();
  }
  void setLevels(std::int64_t level) {
    view.lvlLeft->setLevel(level);
    view.lvlRight->setLevel(level);
  }
};

TEST_F(Feed, MeasuresWhatIsAboutToBeHeard) {
  openAndLoad("a.WAV", false);
  feed->update(LevelFeed::kInterval);
  // 20 log10(0.5) + 48 = 41.98; half of it is 6 dB less.
  EXPECT_EQ(view.lvlLeft->level(), 42);
  EXPECT_EQ(view.lvlRight->level(), 36);
  session->setGain(6);
  fillAnew();
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 48);
}

// Buffers that are full are played as they were filled, up to 0.3 s later.
TEST_F(Feed, ATurnCountsFromWhenItIsHeard) {
  openAndLoad("a.WAV", false);
  play(40);
  session->setGain(7);
  std::vector<std::pair<double, std::int64_t>> shown;
  while (session->playedTime() < 0.6) {
    feed->update(LevelFeed::kInterval);
    shown.emplace_back(session->playedTime(), view.lvlLeft->level());
    play(20);
  }
  const std::vector<float>& heard = output->played();
  const auto louder =
      std::ranges::find_if(heard, [&](float sample) { return sample > 1.01F * heard[0]; });
  ASSERT_NE(louder, heard.end());
  const double turned = static_cast<double>((louder - heard.begin()) / 2) / kRate;
  EXPECT_GT(turned, 0.2) << "it is heard that late";
  constexpr double kGlide = 0.02;
  for (const auto& [time, level] : shown) {
    const bool isAfter = time > turned + kGlide;
    const bool isBefore = time + LevelFeed::kInterval < turned;
    EXPECT_TRUE((level == 42 && !isAfter) || (level == 49 && !isBefore)) << level << " at " << time;
  }
  EXPECT_EQ(view.clipLeft->figure(), "+1.0");
}

TEST_F(Feed, MeasuresWithTheWidth) {
  openAndLoad("a.WAV");
  feed->update(LevelFeed::kInterval);
  const auto mono = view.lvlLeft->level();
  EXPECT_EQ(view.lvlRight->level(), mono);
  session->setAngle(150.0);
  fillAnew();
  feed->update(LevelFeed::kInterval);
  EXPECT_NE(view.lvlLeft->level(), view.lvlRight->level());
}

/// Frames of a raw take, over and over.
std::vector<std::int32_t> repeated(std::initializer_list<double> samples, int frames) {
  constexpr double kFull = 0x800000;
  std::vector<std::int32_t> all;
  const std::vector<double> piece(samples);
  while (all.size() < 2 * static_cast<std::size_t>(frames)) {
    for (const double sample : piece) all.push_back(static_cast<std::int32_t>(sample * kFull));
  }
  return all;
}

// At 120 degrees Left is M + S and Right M - S: here all of it is on the right.
TEST_F(Feed, LightsTheRightForASourceOnTheRight) {
  const auto data = WaveBytes::samples24(repeated({0.25, -0.25, -0.125, 0.125}, kRate));
  const auto file = takes.file("r.WAV", WaveBytes().recorderBext(true).format24().data(data).get());
  session->setAngle(120.0);
  openFile("r.WAV", file);
  while (!session->job()->reader()->follow(0, 0.5)) std::this_thread::yield();
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 0);
  EXPECT_EQ(view.lvlRight->level(), 42) << "20 log10(0.5) + 48";
  feed->setByRecordersRule(true);
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 39) << "the greatest Mid and Side, as if together: 0.375";
  EXPECT_EQ(view.lvlRight->level(), 30) << "0.125";
  EXPECT_EQ(view.lblLevelValue->text(), "recorder's rule");
  EXPECT_EQ(view.clipRight->figure(), "–") << "keeps no peak by that rule";
}

// Someone walks from the left to the right: here at the end of the way, just after a stroke of the
// bell. What is to be seen is worked out of the samples alone.
TEST_F(Feed, LightsTheRightWhereTheDemoTakeIs) {
  std::vector<float> frames(2 * DemoScene::kFrames);
  DemoScene().fill(frames);
  std::vector<std::int32_t> samples;
  for (const float sample : frames) {
    samples.push_back(
        static_cast<std::int32_t>(std::lround(static_cast<double>(sample) * 8388608)));
  }
  packets = WaveBytes::samples24(samples);
  openFile("demo.WAV",
           takes.file("demo.WAV", WaveBytes().recorderBext(true).format24().data(packets).get()));
  session->setAngle(121.0);
  session->seek(0.9375);
  const double time = session->playedTime();
  while (!session->job()->reader()->follow(time, time + 0.5)) std::this_thread::yield();
  const double share = std::pow(10.0, 0.2 / 20);  // of Side: a degree over plain sum and difference
  double left = 0;
  double right = 0;
  double mid = -1;
  double side = -1;
  const auto end = static_cast<std::size_t>(std::ceil((time + LevelFeed::kInterval) * kRate));
  for (auto i = static_cast<std::size_t>(std::ceil(time * kRate)); i < end; ++i) {
    const double m = samples[2 * i] / 8388608.0;
    const double s = samples[2 * i + 1] / 8388608.0;
    left = std::max(left, std::abs(m + share * s));
    right = std::max(right, std::abs(m - share * s));
    mid = std::max(mid, m);
    side = std::max(side, s);
  }
  const auto level = [](double of) { return std::llround(20 * std::log10(std::abs(of)) + 48); };
  ASSERT_GT(level(right), level(left) + 10) << "the source is on the right";
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), level(left));
  EXPECT_EQ(view.lvlRight->level(), level(right));
  feed->setByRecordersRule(true);
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), level(mid + share * side));
  EXPECT_EQ(view.lvlRight->level(), level(mid - share * side));
  EXPECT_GT(view.lvlLeft->level(), view.lvlRight->level()) << "and yet";
}

// The take lasts a second, its player goes on.
TEST_F(Feed, ByTheRecordersRuleStandsWhereThereIsNothingToMeasure) {
  openAndLoad("a.WAV");
  feed->setByRecordersRule(true);
  session->seek(0.5);
  setLevels(17);
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 17);
  EXPECT_EQ(view.lvlRight->level(), 17);
  openAndLoad("b.WAV", false);
  session->setAngle(120.0);
  session->seek(0.5);
  setLevels(17);
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 17) << "no width for what is not raw";
}

// As many bytes at the end of the samples as there are before them are measured by nobody.
TEST_F(Feed, ByTheRecordersRuleStandsInTheLastMoment) {
  const auto data = WaveBytes::samples24(repeated({0.25, 0.125}, kFrames));
  const auto file = takes.file("e.WAV", WaveBytes().recorderBext(true).format24().data(data).get());
  openFile("e.WAV", file);
  feed->setByRecordersRule(true);
  const auto levelsAt = [&](std::uint64_t frame) {
    session->seekToFrame(frame);
    const double time = session->playedTime();
    while (!session->job()->reader()->follow(time, time + LevelFeed::kInterval)) {
      std::this_thread::yield();
    }
    setLevels(17);
    feed->update(LevelFeed::kInterval);
    return std::pair(view.lvlLeft->level(), view.lvlRight->level());
  };
  const auto before = (std::filesystem::file_size(file) - data.size()) / 6;
  ASSERT_GT(before, 60U) << "frames";
  EXPECT_EQ(levelsAt(kFrames - before - 60), std::pair(36L, 36L)) << "Mid alone, 0.25";
  EXPECT_EQ(levelsAt(kFrames - 60), std::pair(17L, 17L));
}

// What stands for nothing is decoded and gained as a sample: minus four on the left, none on the
// right.
TEST_F(Feed, ByTheRecordersRuleTakesNothingForASampleAtAnAngle) {
  openAndLoad("a.WAV");
  feed->setByRecordersRule(true);
  session->setAngle(120.0);
  session->setGain(-20);
  session->seek(0.5);
  setLevels(17);
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 40) << "20 log10(4) - 20 + 48";
  EXPECT_EQ(view.lvlRight->level(), 0);
  session->setAngle(0.0);
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 34) << "20 log10(2) - 20 + 48";
  EXPECT_EQ(view.lvlRight->level(), 34);
}

TEST_F(Feed, ShowsWhatIsHeardAloneByTheRecordersRuleToo) {
  openAndLoad("a.WAV");
  session->setAngle(120.0);
  feed->setByRecordersRule(true);
  session->setSolo(Solo::Side);
  fillAnew();
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 36) << "Side is 0.25";
  EXPECT_EQ(view.lvlRight->level(), 36);
  EXPECT_EQ(view.clipLeft->figure(), "–");
  session->setSolo(Solo::None);
  fillAnew();
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 46) << "0.75 is 2.5 dB under full scale";
}

TEST_F(Feed, MagnitudesCountOnBothSidesOfZero) {
  const auto data = WaveBytes::samples24(repeated({-0.5, 0, 0.125, 0}, kRate));
  const auto file = takes.file("n.WAV", WaveBytes().recorderBext(true).format24().data(data).get());
  openFile("n.WAV", file);
  while (!session->job()->reader()->follow(0, 0.5)) std::this_thread::yield();
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 42);
}

TEST_F(Feed, KeepsPeaksUntilTheyAreCleared) {
  openAndLoad("a.WAV", false);
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.clipLeft->figure(), "-6.0");
  EXPECT_EQ(view.clipRight->figure(), "-12.0");
  EXPECT_NEAR(view.lvlLeft->hold(), 48 - 6.02, 0.01);
  session->setGain(7);
  fillAnew();
  feed->update(LevelFeed::kInterval);
  EXPECT_TRUE(view.clipLeft->isLit());
  EXPECT_FALSE(view.clipRight->isLit());
  session->setGain(-20);
  fillAnew();
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.clipLeft->figure(), "+1.0") << "held";
  session->play();
  EXPECT_TRUE(view.clipLeft->isLit()) << "held in a pause as well";
  QTest::mouseClick(view.clipRight, Qt::LeftButton);
  EXPECT_FALSE(view.clipLeft->isLit()) << "one click clears both";
  EXPECT_EQ(view.clipLeft->figure(), "–");
  EXPECT_EQ(view.lvlLeft->hold(), 0);
  session->setGain(7);
  fillAnew();
  feed->update(LevelFeed::kInterval);
  EXPECT_TRUE(view.clipLeft->isLit());
  session->setGain(-20);
  open("b.WAV", false);
  EXPECT_FALSE(view.clipLeft->isLit()) << "that was another take";
}

TEST_F(Feed, RunsWhileItPlaysAndFallsToNothing) {
  const auto* const timer = feed->findChild<QTimer*>("timerLevel");
  EXPECT_FALSE(timer->isActive());
  openAndLoad("a.WAV");
  EXPECT_TRUE(timer->isActive());
  EXPECT_EQ(timer->interval(), 33);
  EXPECT_EQ(timer->timerType(), Qt::PreciseTimer);
  setLevels(30);
  session->play();
  EXPECT_FALSE(timer->isActive());
  EXPECT_EQ(view.lvlLeft->level(), 0);
  setLevels(30);
  open("b.WAV");
  setLevels(30);
  session->close();
  EXPECT_FALSE(timer->isActive());
  EXPECT_EQ(view.lvlRight->level(), 0) << "nothing is heard any more";
}

TEST_F(Feed, MeasuresAgainWhenTheCardIsBack) {
  constexpr std::uint64_t kRing = FollowedBlocks::kMostBlocks * FollowedBlocks::kBlockBytes;
  const auto data = WaveBytes::samples24(repeated({0.25, 0.25}, int{kRing / 3}));
  packets = data;
  SlowReads::limit(takes.path().string(), 0);
  openFile("a.WAV",
           takes.file("a.WAV", WaveBytes().recorderBext(false).format24().data(data).get()));
  const auto image = session->job()->reader()->image();
  while (image->heldFrom(0) < kRing) std::this_thread::yield();
  SlowReads::pullOut();
  session->seek(0.99);  // beyond what is held
  feed->update(LevelFeed::kInterval);
  EXPECT_EQ(view.lvlLeft->level(), 0);
  while (image->followFailure().empty()) std::this_thread::yield();
  SlowReads::reset();
  session->play();
  EXPECT_EQ(session->state(), State::Paused);
  session->play();
  EXPECT_TRUE(EventLoop::runUntil([this] {
    feed->update(LevelFeed::kInterval);
    return view.lvlLeft->level() == 36;
  }));
}

// Nearly thirty seconds of 0.25, of which the ring holds the half.
TEST_F(Feed, WaitsAMomentForTheBeginningOfALongLoop) {
  constexpr std::uint64_t kRing = FollowedBlocks::kMostBlocks * FollowedBlocks::kBlockBytes;
  const auto data = WaveBytes::samples24(repeated({0.25, 0.25}, int{kRing / 3}));
  packets = data;
  SlowReads::limit(takes.path().string(), 0);
  openFile("a.WAV",
           takes.file("a.WAV", WaveBytes().recorderBext(false).format24().data(data).get()));
  const std::uint64_t frames = session->job()->reader()->frameCount();
  session->setLoop(FrameLoop{0, frames});
  session->seekToFrame(frames - std::uint64_t{kRate});
  const auto isShown = [this] {
    feed->update(LevelFeed::kInterval);
    return view.lvlLeft->level() == 36;
  };
  EXPECT_TRUE(EventLoop::runUntil(isShown));
  play(900);
  EXPECT_TRUE(EventLoop::runUntil(isShown));
  SlowReads::share(takes.path().string(), 1);
  play(200);
  ASSERT_LT(session->playedTime(), 0.2) << "it has turned";
  EXPECT_TRUE(isShown()) << "what comes next may be there in a moment";
  play(600);
  EXPECT_FALSE(isShown()) << "it was not";
  SlowReads::reset();
  EXPECT_TRUE(EventLoop::runUntil(isShown));
}

TEST_F(Feed, WithoutATakeItMeasuresNothing) {
  setLevels(17);
  feed->update(1.0);
  EXPECT_EQ(view.lvlLeft->level(), 17);
}

TEST_F(Feed, LetsTheTakeGo) {
  openAndLoad("a.WAV");
  const std::weak_ptr<WaveImage> image = session->job()->reader()->image();
  session->close();
  // The thread that has loaded it may be on its way out.
  EXPECT_TRUE(EventLoop::runUntil([&image] { return image.expired(); }))
      << "or the whole take stays in memory";
}

TEST_F(Feed, ShowsMagnitudesThatThePlayerSends) {
  session->WavePlayerLevelChanged(0.1, -0.5);
  EXPECT_EQ(view.lvlLeft->level(), 20);
  EXPECT_EQ(view.lvlRight->level(), 6);
}

class Messages : public TakeFixture {
 protected:
  QWidget window;
  StatusLine status;
  TakeMessages messages{window, status, *session};
};

TEST_F(Messages, AlertIsForWhatIsNotTheRecorders) {
  openFile("b.wav", takes.file("b.wav", {std::byte{'x'}}));
  EXPECT_TRUE(status.text().startsWith("b.wav: ")) << status.text().toStdString();
  const auto* const alert = window.findChild<QMessageBox*>();
  ASSERT_NE(alert, nullptr);
  EXPECT_EQ(alert->informativeText(), "File not supported.");
  open("a.WAV");
  EXPECT_EQ(status.text(), "") << "that was about another take";
}

TEST_F(Messages, LostOutputIsAQuietLineUntilItPlaysAgain) {
  open("a.WAV");
  play(100);
  output->lose("No sound.");
  play(20);
  EXPECT_EQ(status.text(), "Paused: No sound. Press Play to try again.");
  EXPECT_EQ(window.findChild<QMessageBox*>(), nullptr);
  session->play();
  EXPECT_EQ(status.text(), "");
}

TEST_F(Messages, ReadingFailureNamesTheTake) {
  badFrame = 30'000;
  open("a.WAV");
  play(2000);
  EXPECT_TRUE(status.text().startsWith("a.WAV cannot be read: ")) << status.text().toStdString();
  file->failAt(UINT64_MAX, 0);
  session->play();
  EXPECT_EQ(status.text(), "") << "the card is back";
}

}  // namespace
