// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cmath>

#include "TakeFixture.h"
#include "app/MeasuredTake.h"
#include "app/TransportPane.h"
#include "app/WaveformPane.h"
#include "controls/Colors.h"
#include "dsp/SideGain.h"
#include "gui/controls/Hands.h"
#include "support/EventLoop.h"
#include "support/SlowReads.h"
#include "support/ThreadCount.h"

namespace {

using State = TakeSession::State;

/// Ten seconds: Mid rises from nothing to 0.9, Side is half of it and changes its sign halfway.
class Waves : public TakeFixture {
 protected:
  PlayerView view;
  std::unique_ptr<TransportPane> transport = std::make_unique<TransportPane>(view, *session);
  std::unique_ptr<MeasuredTake> measured = std::make_unique<MeasuredTake>(*session);
  std::unique_ptr<WaveformPane> pane = std::make_unique<WaveformPane>(view, *session, *measured);

  void TearDown() override {
    pane.reset();
    measured.reset();
    transport.reset();
    TakeFixture::TearDown();
  }
  static constexpr std::size_t kClick = 480;  // frames
  static double mid(int frame) { return 0.9 * frame / kFrames; }
  static double side(int frame) { return (frame < kFrames / 2 ? 0.5 : -0.5) * mid(frame); }
  void openRamp() {
    constexpr double kFull = 0x800000;
    std::vector<std::int32_t> samples;
    for (int i = 0; i < kFrames; ++i) {
      samples.push_back(static_cast<std::int32_t>(mid(i) * kFull));
      samples.push_back(static_cast<std::int32_t>(side(i) * kFull));
    }
    const auto data = WaveBytes::samples24(samples);
    openFile("ramp.WAV",
             takes.file("ramp.WAV", WaveBytes().recorderBext(true).format24().data(data).get()));
    Hands::show(view, {688, 636});
  }
  void measureAll() {
    ASSERT_TRUE(EventLoop::runUntil([this] { return measured->isComplete(); }));
  }
  [[nodiscard]] WaveformViewer& viewer() const { return *view.waveform; }
  /// Silence with a click of Mid 0.5 and Side 0.25 every hundredth of a second.
  void openClicks() {
    std::vector<std::int32_t> samples(2 * std::size_t{kFrames});
    for (std::size_t i = 0; i < samples.size(); i += 2 * kClick) {
      samples[i] = 0x400000;
      samples[i + 1] = 0x200000;
    }
    const auto data = WaveBytes::samples24(samples);
    openFile("clicks.WAV",
             takes.file("clicks.WAV", WaveBytes().recorderBext(true).format24().data(data).get()));
    Hands::show(view, {688, 636});
  }
  [[nodiscard]] bool isSilentSomewhere() const {
    return std::ranges::any_of(viewer().columns().columns,
                               [](const auto& column) { return column.left == 0; });
  }
  void expectClicksWhereTheyAre(double left) const {
    Waveform shown;
    shown.from = static_cast<std::uint64_t>(std::llround(viewer().columns().from * kRate));
    shown.to = static_cast<std::uint64_t>(std::llround(viewer().columns().to * kRate));
    shown.columns.resize(viewer().columns().columns.size());
    ASSERT_EQ(shown.columns.size(), static_cast<std::size_t>(viewer().columnsWanted()));
    for (std::size_t i = 0; i < shown.columns.size(); ++i) {
      const std::uint64_t next = (shown.columnStart(i) + kClick - 1) / kClick * kClick;
      const double truth = next < shown.columnStart(i + 1) ? left : 0;
      const auto value = static_cast<double>(viewer().columns().columns[i].left);
      ASSERT_GE(value, truth - 1e-6) << i;
      ASSERT_LE(value, truth * 1.0593) << i;
    }
  }
  struct Setting {
    int width;
    double gain;
  };
  /// Where the bound of the loudest column is over full scale, and no sample is.
  [[nodiscard]] Setting nearlyClipping() const {
    for (int width = 60; width <= 150; ++width) {
      const auto peak = static_cast<double>(measured->analysis()->samplePeak(width));
      const double gain = std::floor(-20 * std::log10(peak));
      const Waveform wave = measured->analysis()->waveform(
          width, gain, 0, kFrames, static_cast<std::size_t>(viewer().columnsWanted()));
      if (std::ranges::any_of(wave.columns, [](const auto& column) { return column.mayClip; })) {
        return {width, gain};
      }
    }
    ADD_FAILURE() << "no such setting";
    return {120, 0};
  }
  [[nodiscard]] bool isRedSomewhere() const {
    return std::ranges::any_of(viewer().columns().columns, [](const auto& column) {
      return column.left > 1 || column.right > 1;
    });
  }
  /// The greatest of the column's own frames, decoded one by one, against what is shown.
  void expectColumnsOf(int width, double gainDb) const {
    const double k = static_cast<double>(SideGain::factor(width));
    const double gain = std::pow(10.0, gainDb / 20);
    const auto& shown = viewer().columns();
    ASSERT_EQ(shown.columns.size(), static_cast<std::size_t>(viewer().columnsWanted()));
    const double wide = static_cast<double>(kFrames) / static_cast<double>(shown.columns.size());
    for (std::size_t i = 0; i < shown.columns.size(); ++i) {
      // In a rising take a bin of 50 ms on either side of the column bounds what may be shown.
      const auto first = static_cast<int>(static_cast<double>(i) * wide);
      const auto last = std::min(kFrames - 1, static_cast<int>(static_cast<double>(i + 1) * wide));
      const auto at = [&](int frame, double sign) {
        frame = std::clamp(frame, 0, kFrames - 1);
        return std::abs(mid(frame) + sign * k * side(frame)) * gain;
      };
      for (const double sign : {1.0, -1.0}) {
        const auto value =
            static_cast<double>(sign > 0 ? shown.columns[i].left : shown.columns[i].right);
        const double most = std::max({at(first, sign), at(last, sign), at(last + 2400, sign)});
        const double truth = std::max(at(first, sign), at(last - 1, sign));
        const bool isAtTheTurn = first - 2400 < kFrames / 2 && last + 2400 > kFrames / 2;
        if (isAtTheTurn) continue;
        ASSERT_GE(value, truth - 1e-5) << i << " never low";
        ASSERT_LE(value, most * 1.06 + 1e-3) << i << " half a decibel at most";
      }
    }
  }
};

TEST_F(Waves, AreIdleWithoutATake) {
  EXPECT_FALSE(viewer().isEnabled());
  EXPECT_EQ(viewer().length(), 0);
  openRamp();
  EXPECT_TRUE(viewer().isEnabled());
  EXPECT_EQ(viewer().length(), 10);
  measureAll();
  EXPECT_FALSE(viewer().columns().columns.empty());
  session->close();
  EXPECT_FALSE(viewer().isEnabled());
  EXPECT_EQ(viewer().length(), 0);
  EXPECT_TRUE(viewer().columns().columns.empty());
  EXPECT_EQ(measured->analysis(), nullptr);
  EXPECT_EQ(measured->progress(), 0);
}

TEST_F(Waves, ShowWhatIsHeard) {
  openRamp();
  measureAll();
  expectColumnsOf(0, 0);
  session->setAngle(120);
  expectColumnsOf(120, 0);
  session->setGain(-12);
  expectColumnsOf(120, -12);
}

// One millisecond a pixel: every column is made of its own 48 frames.
TEST_F(Waves, ZoomedInAreTrueColumnByColumn) {
  openClicks();
  measureAll();
  session->setAngle(120);
  for (int i = 0; i < 60; ++i) viewer().zoom(0.7, viewer().xOf(7));
  EXPECT_FALSE(isSilentSomewhere()) << "bins of 50 ms until the file is read";
  ASSERT_TRUE(EventLoop::runUntil([this] { return isSilentSomewhere(); }));
  expectClicksWhereTheyAre(0.75);
}

TEST_F(Waves, ZoomedInTurnTheDialWithoutTheFile) {
  openClicks();
  measureAll();
  session->setAngle(120);
  for (int i = 0; i < 60; ++i) viewer().zoom(0.7, viewer().xOf(2));
  ASSERT_TRUE(EventLoop::runUntil([this] { return isSilentSomewhere(); }));
  session->setAngle(0);
  expectClicksWhereTheyAre(0.5);
  session->setGain(-20);
  expectClicksWhereTheyAre(0.05);
}

TEST_F(Waves, ShowTheWholeTakeAgainAfterAZoom) {
  openClicks();
  measureAll();
  for (int i = 0; i < 60; ++i) viewer().zoom(0.7, viewer().xOf(2));
  ASSERT_TRUE(EventLoop::runUntil([this] { return isSilentSomewhere(); }));
  viewer().showAll();
  EXPECT_TRUE(EventLoop::runUntil([this] { return viewer().columns().to == 10; }));
}

TEST_F(Waves, AreRedOnlyWhereTheyClip) {
  openRamp();
  measureAll();
  const auto [width, gain] = nearlyClipping();
  session->setAngle(width);
  session->setGain(static_cast<std::int64_t>(gain));
  EXPECT_TRUE(isRedSomewhere()) << "a bound over full scale";
  EXPECT_TRUE(EventLoop::runUntil([this] { return !isRedSomewhere(); })) << "it was read again";
  session->setGain(static_cast<std::int64_t>(gain) + 3);
  EXPECT_TRUE(EventLoop::runUntil([this] { return isRedSomewhere(); }));
}

// Each time that the greatest column crosses full scale its truth is asked for, or is not any more.
TEST_F(Waves, ZoomedInOnSideAreTrueColumnByColumn) {
  openClicks();
  measureAll();
  session->setAngle(120);
  for (int i = 0; i < 60; ++i) viewer().zoom(0.7, viewer().xOf(7));
  ASSERT_TRUE(EventLoop::runUntil([this] { return isSilentSomewhere(); }));
  const auto isSettledAt = [this](double left) {
    const auto& columns = viewer().columns().columns;
    const bool isThere = std::ranges::any_of(columns, [left](const auto& column) {
      return column.left >= static_cast<float>(left) &&
             column.left < static_cast<float>(left) * 1.06F;
    });
    return isThere && isSilentSomewhere();
  };
  session->setSolo(Solo::Side);
  ASSERT_TRUE(EventLoop::runUntil([&] { return isSettledAt(0.25); }));
  expectClicksWhereTheyAre(0.25);
  EXPECT_TRUE(std::ranges::all_of(viewer().columns().columns, [](const auto& column) {
    return column.left == column.right;
  })) << "on both sides";
  session->setSolo(Solo::Mid);
  ASSERT_TRUE(EventLoop::runUntil([&] { return isSettledAt(0.5); }));
  expectClicksWhereTheyAre(0.5);
  session->setSolo(Solo::None);
  expectClicksWhereTheyAre(0.75);
}

// The bound of a peak that just does not clip does, as does Mid, which is not heard.
TEST_F(Waves, OfSideAreRedOnlyWhereItClips) {
  std::vector<std::int32_t> samples(2 * std::size_t{kFrames}, 0x7FFFFF);
  const double most = std::pow(10.0, -6 / 20.0) * 0x800000;  // at 6 dB
  for (std::size_t i = 1; i < samples.size(); i += 2)
    samples[i] = static_cast<std::int32_t>(most) - 9;
  const auto data = WaveBytes::samples24(samples);
  openFile("near.WAV",
           takes.file("near.WAV", WaveBytes().recorderBext(true).format24().data(data).get()));
  Hands::show(view, {688, 636});
  measureAll();
  session->setSolo(Solo::Side);
  ASSERT_TRUE(EventLoop::runUntil([this] { return measured->isWaveformComplete(); }));
  EXPECT_FALSE(isRedSomewhere());
  session->setGain(6);
  EXPECT_TRUE(isRedSomewhere()) << "a bound over full scale";
  EXPECT_TRUE(EventLoop::runUntil([this] { return !isRedSomewhere(); })) << "it was read again";
  session->setGain(7);
  EXPECT_TRUE(EventLoop::runUntil([this] { return isRedSomewhere(); }));
}

TEST_F(Waves, CrossingFullScaleOnACardThatHangsTakesOneThread) {
  openRamp();
  measureAll();
  const auto [width, gain] = nearlyClipping();
  session->play();
  session->setAngle(width);
  SlowReads::share(takes.path().string(), 1);
  const std::size_t before = ThreadCount::now();
  for (int i = 0; i < 20; ++i) {
    session->setGain(static_cast<std::int64_t>(gain));
    session->setGain(static_cast<std::int64_t>(gain) - 20);
  }
  session->setGain(static_cast<std::int64_t>(gain));
  EXPECT_LE(ThreadCount::now(), before + 1);
  EXPECT_TRUE(isRedSomewhere());
  SlowReads::reset();
  EXPECT_TRUE(EventLoop::runUntil([this] { return !isRedSomewhere(); })) << "it was read after all";
}

TEST_F(Waves, TurnTheDialWithoutTheFile) {
  openRamp();
  measureAll();
  std::filesystem::remove(takes.path() / "ramp.WAV");
  const float before = viewer().columns().columns.back().left;
  session->setGain(6);
  EXPECT_NEAR(viewer().columns().columns.back().left, before * 1.995F, 1e-3F);
  EXPECT_EQ(measured->analysis()->layout().frames(), kFrames);
}

TEST_F(Waves, PressSeeksOnTheReleaseAsTheSliderDoes) {
  openRamp();
  session->play();
  Hands::press(viewer(), {viewer().xOf(5), 40});
  EXPECT_TRUE(view.sliderTime->isSeeking());
  EXPECT_NEAR(view.sliderTime->value(), 0.5, 1e-9);
  EXPECT_EQ(view.lblTimeCurrent->text(), "00:00:05");
  EXPECT_NEAR(session->time(), 0.0, 0.1) << "not yet";
  Hands::move(viewer(), {viewer().xOf(8), 40});
  EXPECT_EQ(view.lblTimeCurrent->text(), "00:00:08");
  Hands::release(viewer(), {viewer().xOf(8), 40});
  EXPECT_FALSE(view.sliderTime->isSeeking());
  EXPECT_NEAR(session->time(), 8.0, 0.01);
  EXPECT_EQ(session->state(), State::Paused);
}

TEST_F(Waves, KeysSeekAtOnce) {
  openRamp();
  session->play();
  QTest::keyClick(&viewer(), Qt::Key_Right);
  EXPECT_NEAR(session->time(), 1.0, 0.05);
  QTest::keyClick(&viewer(), Qt::Key_Right);
  EXPECT_NEAR(session->time(), 2.0, 0.05);
  QTest::keyClick(&viewer(), Qt::Key_Home);
  EXPECT_EQ(session->time(), 0.0);
}

TEST_F(Waves, HeadFollowsThePlayerAndTheSlider) {
  openRamp();
  const auto* const timer = pane->findChild<QTimer*>("timerWaveform");
  EXPECT_TRUE(timer->isActive());
  EXPECT_EQ(timer->interval(), 33);
  play(3000);
  pane->refresh();
  EXPECT_NEAR(viewer().position(), 3.0, 0.05);
  session->play();
  EXPECT_FALSE(timer->isActive());
  view.sliderTime->setIsSeeking(true);
  view.sliderTime->adjust(0.7, AdjustCause::Drag);
  EXPECT_NEAR(viewer().position(), 7.0, 1e-9) << "where the slider is held";
  view.sliderTime->adjust(0.7, AdjustCause::Release);
  EXPECT_NEAR(viewer().position(), session->time(), 0.05);
}

TEST_F(Waves, HeadStandsAtTheBeginningAfterTheEnd) {
  openRamp();
  session->seek(0.99);
  play(1000);
  ASSERT_EQ(session->state(), State::Finished);
  pane->refresh();
  EXPECT_EQ(viewer().position(), 0.0);
}

TEST_F(Waves, MeasureWhileItOpensAndAreGivenUpWhenItGoes) {
  const QSignalSpy told(measured.get(), &MeasuredTake::measured);
  openRamp();
  EXPECT_EQ(told.count(), 1) << "another take";
  EXPECT_TRUE(measured->findChild<QTimer*>("timerMeasured")->isActive());
  measureAll();
  EXPECT_EQ(measured->progress(), 1);
  EXPECT_FALSE(measured->findChild<QTimer*>("timerMeasured")->isActive()) << "nothing more to come";
  openRamp();
  EXPECT_EQ(measured->analysis(), nullptr) << "that was another take";
  session->close();
  EXPECT_FALSE(measured->findChild<QTimer*>("timerMeasured")->isActive());
  measured->collect();
  EXPECT_EQ(measured->analysis(), nullptr);
}

// Two hours, on a medium that gives each thread four megabytes and then hangs.
TEST_F(Waves, LongTakesShowWhatIsKnownBeforeAllIs) {
  constexpr std::uint32_t kBytes = 0x7FFF'0000;
  const auto header = WaveBytes().recorderBext(true).format24().chunk("data", kBytes, {});
  const auto path = takes.file("long.WAV", header.get());
  std::filesystem::resize_file(path, std::filesystem::file_size(path) + kBytes);
  SlowReads::share(takes.path().string(), 4'000'000);
  openFile("long.WAV", path);
  Hands::show(view, {688, 636});
  const auto isKnownInPart = [this] {
    const auto& columns = viewer().columns().columns;
    return !columns.empty() && columns.front().isKnown && !columns.back().isKnown;
  };
  EXPECT_TRUE(EventLoop::runUntil(isKnownInPart));
  EXPECT_FALSE(measured->isComplete());
  session->setSolo(Solo::Side);
  EXPECT_FALSE(isKnownInPart()) << "that is another picture";
  EXPECT_TRUE(EventLoop::runUntil(isKnownInPart)) << "of Side";
  session->close();
  SlowReads::reset();
}

TEST_F(Waves, SessionTellsOfAnotherSound) {
  const QSignalSpy told(session.get(), &TakeSession::soundChanged);
  session->setGain(3);
  session->setAngle(90);
  EXPECT_EQ(told.count(), 2);
  session->setGain(3);
  session->setAngle(90);
  EXPECT_EQ(told.count(), 2) << "the same as before";
}

}  // namespace
