// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/GainStage.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "SampleInputs.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// 10^(dB / 20) with the quotient taken in float and the power in double.
double glideEnd(std::int64_t dB) {
  const float quotient = static_cast<float>(dB) / 20.0F;
  return std::pow(10.0, static_cast<double>(quotient));
}

float wantedDivisor(const AdjustDBInfo& info, std::size_t n, std::size_t frameCount) {
  const double from = glideEnd(info.prevGain);
  const double to = glideEnd(info.curGain);
  const std::size_t ramp = frameCount < 960 ? frameCount : 960;
  if (n >= ramp) return static_cast<float>(to);
  return static_cast<float>(from +
                            (to - from) * static_cast<double>(n) / static_cast<double>(ramp));
}

float divided(float sample, float divisor) {
  return divisor == 0.0F ? sample : sample / divisor;
}

void expectGlide(const AdjustDBInfo& info, std::size_t frameCount) {
  SampleInputs inputs(20);
  const std::vector<float> before = inputs.audio(2 * frameCount);
  std::vector<float> frames = before;
  GainStage::glide(frames, info);
  for (std::size_t n = 0; n < frameCount; ++n) {
    const float divisor = wantedDivisor(info, n, frameCount);
    ASSERT_EQ(frames[2 * n], divided(before[2 * n], divisor)) << "frame " << n;
    ASSERT_EQ(frames[2 * n + 1], divided(before[2 * n + 1], divisor)) << "frame " << n;
  }
}

}  // namespace

TEST(GainStageTest, FactorIsTheAmplitudeRatioOfTheDecibels) {
  for (int dB = -120; dB <= 120; ++dB) {
    EXPECT_EQ(GainStage::factor(dB), static_cast<float>(std::pow(10.0, dB / 20.0))) << dB;
  }
  EXPECT_EQ(GainStage::factor(0.0), 1.0F);
  EXPECT_EQ(GainStage::factor(20.0), 10.0F);
  EXPECT_EQ(GainStage::factor(-kInfinity), 0.0F);
}

TEST(GainStageTest, APositiveDecibelDividesItsChannelDown) {
  std::array<float, 4> frames{0.5F, 0.5F, -1.0F, -1.0F};
  GainStage::apply(frames, 6.0206, 0.0);
  EXPECT_NEAR(frames[0], 0.25, 1e-6);
  EXPECT_EQ(frames[1], 0.5F);
  EXPECT_NEAR(frames[2], -0.5, 1e-6);
  EXPECT_EQ(frames[3], -1.0F);
}

TEST(GainStageTest, ANegativeDecibelMakesLouder) {
  std::array<float, 2> frame{0.25F, 0.25F};
  GainStage::apply(frame, 0.0, -6.0206);
  EXPECT_EQ(frame[0], 0.25F);
  EXPECT_NEAR(frame[1], 0.5, 1e-6);
}

TEST(GainStageTest, EachSampleIsDividedByTheFactorRoundedToFloat) {
  SampleInputs inputs(6);
  for (double dB = -24.0; dB <= 24.0; dB += 0.37) {
    const std::vector<float> before = inputs.audio(70);
    std::vector<float> frames = before;
    GainStage::apply(frames, dB, -dB);
    for (std::size_t i = 0; i < frames.size(); ++i) {
      const auto factor = static_cast<float>(std::pow(10.0, (i % 2 == 0 ? dB : -dB) / 20.0));
      ASSERT_EQ(frames[i], before[i] / factor) << dB;
    }
  }
}

TEST(GainStageTest, MinusInfinityDecibelsLeaveTheSamples) {
  SampleInputs inputs(8);
  const std::vector<float> before = inputs.any(64);
  std::vector<float> frames = before;
  GainStage::apply(frames, -kInfinity, -kInfinity);
  EXPECT_EQ(bitsOf(frames), bitsOf(before));
}

TEST(GainStageTest, MinusInfinityDecibelsOnOneChannelLeaveOnlyThatOne) {
  std::array<float, 2> frame{0.5F, 0.5F};
  GainStage::apply(frame, -kInfinity, 20.0);
  EXPECT_EQ(frame[0], 0.5F);
  EXPECT_EQ(frame[1], 0.05F);
}

TEST(GainStageTest, GlideWithoutAChangeIsAPlainDivision) {
  SampleInputs inputs(12);
  const std::vector<float> before = inputs.audio(2 * 1500);
  std::vector<float> frames = before;
  GainStage::glide(frames, {.curGain = 12, .prevGain = 12});
  const auto divisor = static_cast<float>(glideEnd(12));
  for (std::size_t i = 0; i < frames.size(); ++i) ASSERT_EQ(frames[i], before[i] / divisor) << i;
}

TEST(GainStageTest, GlideStartsAtTheOldDivisorAndLeavesTheLastStepToTheNextBuffer) {
  constexpr std::size_t kFrames = 100;
  std::vector<float> frames(2 * kFrames, 1.0F);
  GainStage::glide(frames, {.curGain = 20, .prevGain = 0});  // divisors 1 to 10
  EXPECT_EQ(frames[0], 1.0F);
  // Frame 99 of 100 is still a hundredth of the step away from the divisor 10.
  EXPECT_FLOAT_EQ(frames[2 * 99], static_cast<float>(1.0 / (10.0 - 9.0 / 100.0)));
  EXPECT_FLOAT_EQ(frames[2 * 50], static_cast<float>(1.0 / 5.5));
}

TEST(GainStageTest, GlideSpans960FramesAndThenHolds) {
  std::vector<float> frames(2 * 1000, 1.0F);
  GainStage::glide(frames, {.curGain = 20, .prevGain = 0});
  EXPECT_FLOAT_EQ(frames[2 * 480], static_cast<float>(1.0 / 5.5));
  EXPECT_FLOAT_EQ(frames[2 * 959], static_cast<float>(1.0 / (1.0 + 9.0 * 959.0 / 960.0)));
  EXPECT_NE(frames[2 * 959], 0.1F);
  for (std::size_t n = 960; n < 1000; ++n) EXPECT_EQ(frames[2 * n + 1], 0.1F) << n;
}

TEST(GainStageTest, GlideIsLinearInTheDivisorForEveryLength) {
  for (const std::size_t frameCount : {0U, 1U, 2U, 3U, 100U, 959U, 960U, 961U, 4800U}) {
    ASSERT_NO_FATAL_FAILURE(expectGlide({.curGain = -6, .prevGain = 0}, frameCount));
    ASSERT_NO_FATAL_FAILURE(expectGlide({.curGain = 60, .prevGain = -60}, frameCount));
  }
}

TEST(GainStageTest, GlideEndsTakeTheirExponentInFloat) {
  bool isToldFromDouble = false;
  for (std::int64_t dB = -120; dB <= 120; ++dB) {
    std::array<float, 2> frame{1.0F, 1.0F};
    GainStage::glide(frame, {.curGain = dB, .prevGain = dB});
    EXPECT_EQ(frame[0], 1.0F / static_cast<float>(glideEnd(dB))) << dB;
    const auto inDouble = static_cast<float>(std::pow(10.0, static_cast<double>(dB) / 20.0));
    if (frame[0] != 1.0F / inDouble) isToldFromDouble = true;
  }
  EXPECT_TRUE(isToldFromDouble) << "no gain that shows the difference";
}

TEST(GainStageTest, GlideWithDivisorZeroLeavesTheSamples) {
  constexpr std::int64_t kVanishing = -100000;  // 10^-5000 is 0 in double
  const std::vector<float> before = SampleInputs(9).audio(2 * 1000);
  std::vector<float> frames = before;
  GainStage::glide(frames, {.curGain = kVanishing, .prevGain = kVanishing});
  EXPECT_EQ(bitsOf(frames), bitsOf(before));
  expectGlide({.curGain = kVanishing, .prevGain = 0}, 1000);
}

TEST(GainStageTest, GlideOnlyReadsItsRecordAndStartsAnewAtEveryCall) {
  const AdjustDBInfo info{.curGain = 6, .prevGain = -6};
  std::vector<float> first(2 * 50, 1.0F);
  std::vector<float> second = first;
  GainStage::glide(first, info);
  GainStage::glide(second, info);
  EXPECT_EQ(bitsOf(first), bitsOf(second));
  EXPECT_EQ(info.curGain, 6);
  EXPECT_EQ(info.prevGain, -6);
}
