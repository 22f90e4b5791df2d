// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Scope, correlation and loudness of the open take, without a window.

#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <concepts>
#include <numbers>
#include <set>
#include <thread>

#include "TakeFixture.h"
#include "app/HeardCorrelation.h"
#include "app/LoudnessPane.h"
#include "app/PicturePace.h"
#include "app/PictureTimer.h"
#include "app/ScopePane.h"
#include "app/TransportPane.h"
#include "app/WaveformPane.h"
#include "gui/controls/AccessibleEvents.h"
#include "support/EventLoop.h"
#include "support/SlowReads.h"

namespace {

/// Ten seconds that may differ from frame to frame.
class FieldFixture : public TakeFixture {
 protected:
  PlayerView view;
  FieldView& field = *view.stage->field;

  template <class Sound>
  void openSound(const Sound& sound, bool isRaw = true) {
    constexpr double kFull = 0x7FFFFF;
    std::vector<std::int32_t> samples;
    for (int i = 0; i < kFrames; ++i) {
      const auto [first, second] = sound(i);
      samples.push_back(static_cast<std::int32_t>(std::lround(first * kFull)));
      samples.push_back(static_cast<std::int32_t>(std::lround(second * kFull)));
    }
    const auto data = WaveBytes::samples24(samples);
    const auto wave = WaveBytes().recorderBext(isRaw).format24().data(data).get();
    packets = data;  // what is heard is what is shown
    openFile("f.WAV", takes.file("f.WAV", wave));
  }
  void load(double from, double to) const {
    while (!session->job()->reader()->follow(from, to)) std::this_thread::yield();
  }
  static double heardSeconds(std::integral auto samples) {
    return static_cast<double>(samples) / 2 / kRate;
  }
  static double tone(int frame) { return std::sin(2 * std::numbers::pi * 997 * frame / kRate); }
};

class Scope : public FieldFixture {
 protected:
  std::unique_ptr<ScopePane> pane = std::make_unique<ScopePane>(*view.stage, *session);
  void SetUp() override {
    FieldFixture::SetUp();
    field.scope->resize(144, 144);
  }
  void TearDown() override {
    pane.reset();
    FieldFixture::TearDown();
  }
  [[nodiscard]] const PictureTimer& timer() const {
    return *pane->findChild<PictureTimer*>("timerScope");
  }
  /// Milliseconds to the next picture.
  [[nodiscard]] double wait() const { return static_cast<double>(timer().interval().count()); }
};

TEST_F(Scope, IsDarkUnlessSomethingIsHeard) {
  EXPECT_TRUE(field.scope->isDark());
  EXPECT_EQ(view.stage->lblImageValue->text(), "–");
  openSound([](int i) { return std::pair(0.5 * tone(i), 0.0); });
  load(0, 0.5);
  pane->advance();
  EXPECT_FALSE(field.scope->isDark());
  EXPECT_EQ(view.stage->lblImageValue->text(), "+1.00") << "Mid alone";
  session->play();
  EXPECT_TRUE(field.scope->isDark());
  EXPECT_EQ(view.stage->lblImageValue->text(), "–");
  EXPECT_FALSE(timer().isActive());
  session->play();
  EXPECT_TRUE(timer().isActive());
  session->close();
  EXPECT_TRUE(field.scope->isDark());
  pane->advance();
  EXPECT_TRUE(field.scope->isDark());
}

TEST_F(Scope, ShowsSideAsOppositeChannels) {
  session->setAngle(120);
  openSound([](int i) { return std::pair(0.0, 0.5 * tone(i)); });
  load(0, 0.5);
  pane->advance();
  EXPECT_EQ(view.stage->lblImageValue->text(), "−1.00");
  EXPECT_EQ(field.correlation->figureText(), "-1.00");
}

TEST_F(Scope, ReducedMotionShowsEachQuarterOfASecondByItself) {
  openSound(
      [](int i) { return std::pair(i < static_cast<int>(kRate) ? 0.5 * tone(i) : 0.0, 0.0); });
  load(0, 2);
  pane->reduceMotion(true);
  EXPECT_NEAR(wait(), 250, 40);
  session->seek(0.05);
  pane->advance();
  EXPECT_FALSE(field.scope->isDark());
  session->seek(0.15);
  load(1, 2);
  pane->advance();
  const int side = field.scope->points().side();
  for (int y = 0; y < side / 2 - 4; ++y) EXPECT_EQ(field.scope->points().lightAt(side / 2, y), 0);
  pane->reduceMotion(false);
  EXPECT_NEAR(wait(), 17, 17) << "of 60 refreshes, two";
}

TEST(PicturePace, APictureStaysForWholeRefreshes) {
  EXPECT_DOUBLE_EQ(PicturePace::interval(60), 1 / 30.0);
  EXPECT_DOUBLE_EQ(PicturePace::interval(59.94), 2 / 59.94);
  EXPECT_DOUBLE_EQ(PicturePace::interval(50), 1 / 50.0);
  EXPECT_DOUBLE_EQ(PicturePace::interval(75), 2 / 75.0);
  EXPECT_DOUBLE_EQ(PicturePace::interval(144), 4 / 144.0);
  EXPECT_DOUBLE_EQ(PicturePace::interval(240), 8 / 240.0);
  EXPECT_DOUBLE_EQ(PicturePace::interval(24), 1 / 24.0) << "there are no more";
  for (const double unknown : {0.0, -1.0, std::nan(""), HUGE_VAL}) {
    EXPECT_DOUBLE_EQ(PicturePace::interval(unknown), 1 / 30.0);
  }
}

// A timer counts whole milliseconds, and is late.
TEST(PicturePace, WhatATimerIsOffByDoesNotAddUp) {
  constexpr double kStep = 2 / 59.94;
  constexpr PicturePace::Milliseconds kBegin(1'000'000);
  PicturePace pace;
  pace.begin(kBegin);
  PicturePace::Milliseconds now = kBegin;
  for (int picture = 1; picture <= 1000; ++picture) {
    now += pace.next(now, kStep);
    EXPECT_NEAR(static_cast<double>((now - kBegin).count()), 1000 * kStep * picture, 0.6);
    now += PicturePace::Milliseconds(picture % 5);
  }
}

TEST(PicturePace, PicturesThatNobodyWasThereForAreLeftOut) {
  using namespace std::chrono_literals;
  PicturePace pace;
  pace.begin(1000ms);
  EXPECT_EQ(pace.next(1000ms, 0.05), 50ms);
  EXPECT_EQ(pace.next(1420ms, 0.05), 30ms);
  EXPECT_EQ(pace.next(1450ms, 0.05), 50ms);
}

TEST(PictureTimer, TellsOnceForEachStart) {
  using namespace std::chrono_literals;
  PictureTimer timer;
  const QSignalSpy told(&timer, &PictureTimer::timeout);
  const auto begin = std::chrono::steady_clock::now();
  timer.start(20ms);
  EXPECT_TRUE(timer.isActive());
  ASSERT_TRUE(EventLoop::runUntil([&] { return told.count() > 0; }));
  EXPECT_GE(std::chrono::steady_clock::now() - begin, 20ms);
  EXPECT_FALSE(timer.isActive());
  timer.start(1ms);
  std::this_thread::sleep_for(5ms);
  timer.start(30ms);
  EXPECT_EQ(timer.interval(), 30ms);
  QCoreApplication::processEvents();
  ASSERT_TRUE(EventLoop::runUntil([&] { return told.count() > 1; }));
  timer.start(1ms);
  std::this_thread::sleep_for(5ms);
  timer.stop();
  QCoreApplication::processEvents();
  EXPECT_EQ(told.count(), 2) << "neither from before nor once more";
}

// One loud frame at two seconds: looked for from before to after, thirty pictures a second. The
// output holds 40 ms that are not heard yet, so it is asked when the frame really was.
TEST_F(Scope, ShowsAFrameWithinThirtyMillisecondsOfItsSound) {
  constexpr int kImpulse = 2 * kRate;
  openSound([](int i) { return std::pair(i == kImpulse ? 0.5 : 0.0, 0.0); });
  load(1.5, 2.5);
  session->seek(0.17);
  const auto isShown = [this] {
    const int side = field.scope->points().side();
    for (int i = 0; i < side * (side / 2 - 4); ++i) {
      if (field.scope->points().lightAt(i % side, i / side) > 0) return true;
    }
    return false;
  };
  double shownAt = -1;
  while (session->playedTime() < 2.5) {
    play(20);
    load(session->playedTime(), session->playedTime() + 0.1);
    pane->advance();
    if (isShown() && shownAt < 0) shownAt = heardSeconds(output->played().size());
  }
  const auto& heard = output->played();
  const auto loud = std::ranges::find_if(heard, [](float sample) { return sample > 0.1F; });
  ASSERT_NE(loud, heard.end());
  EXPECT_NEAR(shownAt, heardSeconds(loud - heard.begin()), 0.030);
}

TEST_F(Scope, TellsAssistiveSoftwareNothingUnasked) {
  session->setAngle(120);
  openSound([](int i) {
    const bool isMid = i / 24'000 % 2 == 0;
    return std::pair(isMid ? tone(i) : 0.0, isMid ? 0.0 : tone(i));
  });
  load(0, 3);
  std::set<QString> shown;
  const AccessibleEvents events;
  for (int i = 0; i < 6; ++i) {
    session->seek(0.025 + 0.05 * i);
    load(session->playedTime(), session->playedTime() + 0.1);
    pane->advance();
    shown.insert(view.stage->lblImageValue->text());
  }
  EXPECT_GE(shown.size(), 2U);
  EXPECT_EQ(AccessibleEvents::count(QAccessible::NameChanged), 0);
}

TEST(HeardCorrelation, IsThatOfTheLastThreeTenths) {
  HeardCorrelation correlation;
  EXPECT_EQ(correlation.value(), std::nullopt);
  const std::vector<float> same = {0.5F, 0.5F, -0.5F, -0.5F};
  const std::vector<float> opposite = {0.5F, -0.5F, -0.5F, 0.5F};
  const std::vector<float> silent(4, 0.0F);
  correlation.add(same, 0.1);
  EXPECT_DOUBLE_EQ(*correlation.value(), 1);
  correlation.add(opposite, 0.1);
  EXPECT_NEAR(*correlation.value(), 0, 1e-12);
  correlation.add(opposite, 0.1);
  correlation.add(opposite, 0.1);
  EXPECT_DOUBLE_EQ(*correlation.value(), -1) << "the first has gone";
  for (int i = 0; i < 3; ++i) correlation.add(silent, 0.1);
  EXPECT_EQ(correlation.value(), std::nullopt);
  const std::vector<float> oneSided = {0.5F, 0.0F, -0.5F, 0.0F};
  correlation.clear();
  correlation.add(oneSided, 0.1);
  EXPECT_EQ(correlation.value(), std::nullopt) << "with a silent channel there is none";
}

class LoudnessFigures : public FieldFixture {
 protected:
  std::unique_ptr<TransportPane> transport = std::make_unique<TransportPane>(view, *session);
  std::unique_ptr<MeasuredTake> measured = std::make_unique<MeasuredTake>(*session);
  std::unique_ptr<WaveformPane> waves = std::make_unique<WaveformPane>(view, *session, *measured);
  std::unique_ptr<LoudnessPane> pane = std::make_unique<LoudnessPane>(view, *session, *measured);

  void TearDown() override {
    pane.reset();
    waves.reset();
    measured.reset();
    transport.reset();
    FieldFixture::TearDown();
  }
  void measureAll() {
    const auto isDone = [this] { return measured->isComplete() && !measured->isRunning(); };
    ASSERT_TRUE(EventLoop::runUntil(isDone));
  }
};

// A tone of 997 Hz at full scale in one channel is -3.01 LUFS: here in both, 20 dB down.
TEST_F(LoudnessFigures, AreThoseOfTheWidthAndGainThatAreHeard) {
  EXPECT_EQ(field.wholeTake->figureText(), "–");
  openSound([](int i) { return std::pair(0.1 * tone(i), 0.1 * tone(i)); });
  measureAll();
  EXPECT_NEAR(*field.wholeTake->figure(), -20.0, 0.05) << "Mid alone at 0 degrees";
  EXPECT_NEAR(*field.truePeak->figure(), -20.0, 0.1);
  EXPECT_EQ(field.wholeTake->figureText(), "-20.0 LUFS");
  session->setGain(14);
  EXPECT_NEAR(*field.wholeTake->figure(), -6.0, 0.05);
  session->setAngle(120);
  EXPECT_NEAR(*field.wholeTake->figure(), -3.0, 0.05) << "all in Left, twice as loud";
  EXPECT_NEAR(*field.truePeak->figure(), 0.0, 0.1);
  session->close();
  EXPECT_EQ(field.wholeTake->figureText(), "–");
  EXPECT_EQ(field.momentary->figureText(), "–");
}

TEST_F(LoudnessFigures, TruePeakWarnsFromMinusOneAndIsRedOverZero) {
  openSound([](int i) { return std::pair(0.5 * tone(i), 0.0); });
  measureAll();
  EXPECT_EQ(field.truePeak->look(), FigureLine::Look::Strong);
  session->setGain(5);
  EXPECT_EQ(field.truePeak->look(), FigureLine::Look::Strong) << "-1.02";
  session->setGain(6);
  EXPECT_EQ(field.truePeak->look(), FigureLine::Look::Warning) << "-0.02";
  session->setGain(7);
  EXPECT_EQ(field.truePeak->look(), FigureLine::Look::Over);
}

TEST_F(LoudnessFigures, MomentaryAndShortTermAreThoseOfThePlayHead) {
  openSound([](int i) { return std::pair(i < kFrames / 2 ? 0.1 * tone(i) : 0.05 * tone(i), 0.0); });
  measureAll();
  session->play();
  session->seek(0.4);
  waves->refresh();
  pane->refreshHead();
  EXPECT_NEAR(*field.momentary->figure(), -20.0, 0.05);
  EXPECT_NEAR(*field.shortTerm->figure(), -20.0, 0.05);
  view.waveform->adjust(6.0, AdjustCause::Press);
  EXPECT_NEAR(*field.momentary->figure(), -26.0, 0.05) << "already while it is dragged";
  EXPECT_GT(*field.shortTerm->figure(), -24.0) << "two seconds of it were louder";
  view.waveform->adjust(0.1, AdjustCause::Press);
  EXPECT_EQ(field.momentary->figureText(), "–") << "less than a window";
}

TEST_F(LoudnessFigures, SayHowMuchIsKnown) {
  openSound([](int i) { return std::pair(0.1 * tone(i), 0.0); });
  EXPECT_EQ(field.wholeTake->note(), "0 %");
  measureAll();
  EXPECT_EQ(field.wholeTake->note(), "");
  EXPECT_EQ(field.truePeak->note(), "");
}

// Ten minutes, of which a medium that hangs then gives less than half; the tone is in the first ten
// seconds.
TEST_F(LoudnessFigures, ShowWhatIsKnownSoFarWhileTheRestIsMeasured) {
  constexpr std::uint32_t kBytes = 600 * kRate * 6;
  std::vector<std::int32_t> samples;
  for (int i = 0; i < kFrames; ++i) {
    const auto sample = static_cast<std::int32_t>(std::lround(0.1 * 0x7FFFFF * tone(i)));
    samples.insert(samples.end(), {sample, sample});
  }
  const auto data = WaveBytes::samples24(samples);
  const auto header = WaveBytes().recorderBext(true).format24().chunk("data", kBytes, data);
  const auto path = takes.file("long.WAV", header.get());
  std::filesystem::resize_file(path, std::filesystem::file_size(path) + kBytes - data.size());
  SlowReads::give(takes.path().string(), kBytes / 5 * 2);
  openFile("long.WAV", path);
  const auto isKnownInPart = [this] {
    const QString note = field.wholeTake->note();
    const int percent = note.section(u' ', 0, 0).toInt();
    return percent > 0 && percent < 99 && note.endsWith(u'%') && field.wholeTake->figure();
  };
  EXPECT_TRUE(EventLoop::runUntil(isKnownInPart)) << field.wholeTake->note().toStdString();
  EXPECT_FALSE(measured->isComplete());
  EXPECT_NEAR(field.wholeTake->figure().value_or(0), -20.0, 0.05);
  EXPECT_NEAR(field.truePeak->figure().value_or(0), -20.0, 0.1);
  EXPECT_EQ(field.truePeak->note(), field.wholeTake->note());
  session->close();
  SlowReads::reset();
}

TEST_F(LoudnessFigures, TimerRunsWhileItPlays) {
  const auto* const timer = pane->findChild<QTimer*>("timerLoudness");
  EXPECT_FALSE(timer->isActive());
  openSound([](int) { return std::pair(0.0, 0.0); });
  EXPECT_TRUE(timer->isActive());
  session->play();
  EXPECT_FALSE(timer->isActive());
}

}  // namespace
