// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Signals whose figures are known: the cases of EBU Tech 3341 and 3342, and the scale of BS.1770;
// as Left and Right, and encoded as Mid and Side for several widths.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "TestTake.h"
#include "analysis/TakeAnalysis.h"

namespace {

constexpr std::uint32_t kSignalRate = 48000;
constexpr double kLoudnessTolerance = 0.1;

using Check = std::function<void(const TakeAnalysis& analysis, int width)>;

struct Step {
  double level;
  double seconds;
};

Frames steps(const std::vector<Step>& all) {
  Frames frames;
  for (const Step& step : all) TestTake::addSine(frames, kSignalRate, step.seconds, step.level);
  return frames;
}

// As Left and Right, then as Mid and Side.
void expectAtEveryWidth(const Frames& leftRight, const Check& check,
                        std::uint32_t rate = kSignalRate) {
  check(*TestTake::analyse(leftRight, rate, false), 120);
  for (const int width : {60, 120, 150}) {
    SCOPED_TRACE(width);
    check(*TestTake::analyse(TestTake::encoded(leftRight, width), rate, true), width);
  }
}

void expectIntegrated(const Frames& frames, double wanted) {
  expectAtEveryWidth(frames, [wanted](const TakeAnalysis& analysis, int width) {
    EXPECT_NEAR(analysis.at(width, 0).integratedLufs.value_or(-99), wanted, kLoudnessTolerance);
    EXPECT_NEAR(analysis.at(width, 6).integratedLufs.value_or(-99), wanted + 6, kLoudnessTolerance);
  });
}

void expectRange(const std::vector<double>& levels, double wanted) {
  std::vector<Step> all;
  for (const double level : levels) all.push_back({level, 20});
  expectAtEveryWidth(steps(all), [wanted](const TakeAnalysis& analysis, int width) {
    EXPECT_NEAR(analysis.at(width, 0).rangeLu.value_or(-99), wanted, 1.0);
  });
}

void expectTruePeak(const Frames& frames, double wanted) {
  expectAtEveryWidth(frames, [wanted](const TakeAnalysis& analysis, int width) {
    const double peak = analysis.at(width, 0).truePeakDbtp.value_or(-99);
    EXPECT_LE(peak, wanted + 0.2);
    EXPECT_GE(peak, wanted - 0.4);
  });
}

// Fades of 10 ms.
void fade(Frames& frames) {
  constexpr std::size_t kLength = kSignalRate / 100;
  const std::size_t count = frames.size() / 2;
  for (std::size_t i = 0; i < kLength; ++i) {
    const float factor = static_cast<float>(i) / kLength;
    for (const std::size_t frame : {i, count - 1 - i}) {
      frames[2 * frame] *= factor;
      frames[2 * frame + 1] *= factor;
    }
  }
}

Frames tone(double amplitude, double divisor, double phase) {
  Frames frames;
  TestTake::addSine(frames, kSignalRate, 1, 20 * std::log10(amplitude), kSignalRate / divisor,
                    phase);
  fade(frames);
  return frames;
}

// Up to half of a quarter of the rate, by a sinc under a raised cosine.
double lowPassed(const std::vector<double>& fine, std::size_t at) {
  constexpr int kReach = 96;
  double sum = 0;
  for (int i = -kReach; i <= kReach; ++i) {
    const double turn = std::numbers::pi * i / 4;
    const double sinc = i == 0 ? 1 : std::sin(turn) / turn;
    const double window = 0.5 * (1 + std::cos(std::numbers::pi * i / (kReach + 1)));
    sum += 0.25 * sinc * window * fine[at + static_cast<std::size_t>(kReach + i) - kReach];
  }
  return sum;
}

// One period of a quarter of the rate at full scale within a sixth of it at half, made at four
// times the rate and decimated from the sample at `offset` on.
Frames decimatedBurst(std::size_t offset) {
  constexpr std::size_t kCount = 4 * 4800;
  constexpr std::size_t kBurst = kCount / 2;
  constexpr std::size_t kMargin = 240;
  std::vector<double> fine(kCount);
  const auto sine = [](double amplitude, double period, std::size_t at) {
    return amplitude * std::sin(2 * std::numbers::pi * static_cast<double>(at) / period);
  };
  for (std::size_t i = 0; i < kCount; ++i) fine[i] = sine(0.5, 24, i);
  for (std::size_t i = 0; i < 16; ++i) fine[kBurst + i] = sine(1.0, 16, i);
  Frames frames;
  for (std::size_t i = offset + kMargin; i + kMargin < kCount; i += 4) {
    const auto value = static_cast<float>(lowPassed(fine, i));
    frames.insert(frames.end(), {value, value});
  }
  fade(frames);
  return frames;
}

}  // namespace

TEST(KnownSignalsTest, Case1And2SteadyTones) {
  for (const double level : {-23.0, -33.0}) {
    expectAtEveryWidth(steps({{level, 20}}), [level](const TakeAnalysis& analysis, int width) {
      const std::uint64_t last = analysis.layout().frames() - 1;
      const TakeFigures figures = analysis.at(width, 0);
      EXPECT_NEAR(figures.integratedLufs.value_or(-99), level, kLoudnessTolerance);
      EXPECT_NEAR(figures.momentaryMaxLufs.value_or(-99), level, kLoudnessTolerance);
      EXPECT_NEAR(figures.shortTermMaxLufs.value_or(-99), level, kLoudnessTolerance);
      EXPECT_NEAR(analysis.momentaryLufs(width, 0, last).value_or(-99), level, kLoudnessTolerance);
      EXPECT_NEAR(analysis.shortTermLufs(width, 0, last).value_or(-99), level, kLoudnessTolerance);
    });
  }
}

TEST(KnownSignalsTest, Case3RelativeGate) {
  expectIntegrated(steps({{-36, 10}, {-23, 60}, {-36, 10}}), -23);
}

TEST(KnownSignalsTest, Case4BothGates) {
  const Frames frames = steps({{-72, 10}, {-36, 10}, {-23, 60}, {-36, 10}, {-72, 10}});
  expectAtEveryWidth(frames, [](const TakeAnalysis& analysis, int width) {
    EXPECT_NEAR(analysis.at(width, 0).integratedLufs.value_or(-99), -23, kLoudnessTolerance);
  });
}

TEST(KnownSignalsTest, Case5MeanOfWhatIsLeft) {
  expectIntegrated(steps({{-26, 20}, {-20, 20.1}, {-26, 20}}), -23);
}

TEST(KnownSignalsTest, Case9ShortTermIsConstant) {
  std::vector<Step> all;
  for (int i = 0; i < 5; ++i) all.insert(all.end(), {{-20, 1.34}, {-30, 1.66}});
  expectAtEveryWidth(steps(all), [](const TakeAnalysis& analysis, int width) {
    const std::uint64_t frames = analysis.layout().frames();
    for (std::uint64_t frame = 3 * kSignalRate - 1; frame < frames; frame += 4800) {
      EXPECT_NEAR(analysis.shortTermLufs(width, 0, frame).value_or(-99), -23, kLoudnessTolerance);
    }
  });
}

TEST(KnownSignalsTest, Case10And13TonesThatBeginAnywhere) {
  for (int i = 0; i < 20; ++i) {
    SCOPED_TRACE(i);
    for (const double seconds : {3.0, 0.4}) {
      Frames frames;
      TestTake::addSilence(frames, kSignalRate, i * 0.15);
      TestTake::addSine(frames, kSignalRate, seconds, -23);
      TestTake::addSilence(frames, kSignalRate, 1);
      expectAtEveryWidth(frames, [seconds](const TakeAnalysis& analysis, int width) {
        const TakeFigures figures = analysis.at(width, 0);
        const auto found = seconds > 1 ? figures.shortTermMaxLufs : figures.momentaryMaxLufs;
        EXPECT_NEAR(found.value_or(-99), -23, kLoudnessTolerance);
      });
    }
  }
}

TEST(KnownSignalsTest, Case11And14StepsAreFollowed) {
  for (const double seconds : {3.0, 0.4}) {
    std::vector<Step> all;
    for (int level = -38; level <= -19; ++level) all.push_back({level + 0.0, seconds});
    expectAtEveryWidth(steps(all), [seconds](const TakeAnalysis& analysis, int width) {
      for (int i = 0; i < 20; ++i) {
        const auto last = static_cast<std::uint64_t>((i + 1) * seconds * kSignalRate) - 1;
        const auto found = seconds > 1 ? analysis.shortTermLufs(width, 0, last)
                                       : analysis.momentaryLufs(width, 0, last);
        EXPECT_NEAR(found.value_or(-99), i - 38, kLoudnessTolerance);
      }
    });
  }
}

TEST(KnownSignalsTest, Case12MomentaryIsConstant) {
  std::vector<Step> all;
  for (int i = 0; i < 25; ++i) all.insert(all.end(), {{-20, 0.18}, {-30, 0.22}});
  expectAtEveryWidth(steps(all), [](const TakeAnalysis& analysis, int width) {
    const std::uint64_t frames = analysis.layout().frames();
    for (std::uint64_t frame = kSignalRate - 1; frame < frames; frame += 4800) {
      EXPECT_NEAR(analysis.momentaryLufs(width, 0, frame).value_or(-99), -23, kLoudnessTolerance);
    }
  });
}

// A sixteenth of it may be outside of the window that holds most of it.
TEST(KnownSignalsTest, ABurstThatBeginsInBetweenReadsHardlyLow) {
  double least = 0;
  for (int i = 0; i <= 20; ++i) {
    Frames frames;
    TestTake::addSilence(frames, kSignalRate, 1 + i * 0.005);
    TestTake::addSine(frames, kSignalRate, 0.4, -23);
    TestTake::addSilence(frames, kSignalRate, 1);
    const auto analysis = TestTake::analyse(frames, kSignalRate, false);
    const double found = analysis->at(120, 0).momentaryMaxLufs.value_or(-99) + 23;
    EXPECT_LT(found, 0.01) << i;
    least = std::min(least, found);
  }
  EXPECT_NEAR(least, 10 * std::log10(15.0 / 16), 0.02);
}

TEST(KnownSignalsTest, Case15To18PeaksBetweenSamples) {
  expectTruePeak(tone(0.5, 4, 0), -6);
  expectTruePeak(tone(0.5, 4, 45), -6);
  expectTruePeak(tone(0.5, 6, 60), -6);
  expectTruePeak(tone(0.5, 8, 67.5), -6);
}

TEST(KnownSignalsTest, Case19PeakOverFullScale) {
  expectTruePeak(tone(1.41, 4, 45), 3);
}

TEST(KnownSignalsTest, Case20To23BurstsAnywhereBetweenSamples) {
  for (const std::size_t offset : {0U, 1U, 2U, 3U}) {
    SCOPED_TRACE(offset);
    expectTruePeak(decimatedBurst(offset), 0);
  }
}

TEST(KnownSignalsTest, Range1To4) {
  expectRange({-20, -30}, 10);
  expectRange({-20, -15}, 5);
  expectRange({-40, -20}, 20);
  expectRange({-50, -35, -20, -35, -50}, 15);
}

TEST(KnownSignalsTest, ScaleOf997HertzInOneChannel) {
  Frames frames;
  TestTake::addSine(frames, kSignalRate, 10, 0, 997);
  for (std::size_t i = 1; i < frames.size(); i += 2) frames[i] = 0;
  expectAtEveryWidth(frames, [](const TakeAnalysis& analysis, int width) {
    EXPECT_NEAR(analysis.at(width, 0).integratedLufs.value_or(-99), -3.01, 0.01);
    EXPECT_NEAR(analysis.at(width, 0).samplePeakDbfs.value_or(-99), 0, 0.001);
  });
}

TEST(KnownSignalsTest, EveryRateGivesTheSameLoudness) {
  for (const std::uint32_t rate : {8000U, 11025U, 22050U, 44100U, 96000U, 192000U, 768000U}) {
    SCOPED_TRACE(rate);
    Frames frames;
    TestTake::addSine(frames, rate, 4, -23);
    const double tolerance = rate < 16000 ? 0.22 : kLoudnessTolerance;
    const TakeFigures figures = TestTake::analyse(frames, rate, false)->at(120, 0);
    EXPECT_NEAR(figures.integratedLufs.value_or(-99), -23, tolerance);
    EXPECT_NEAR(figures.shortTermMaxLufs.value_or(-99), -23, tolerance);
  }
}
