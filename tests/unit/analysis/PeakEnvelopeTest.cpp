// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/PeakEnvelope.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "dsp/AnalysisKernels.h"
#include "dsp/Oversampling.h"
#include "dsp/PlainAnalysisKernels.h"

namespace {

using Values = PeakEnvelope::Values;
using Extremes = std::array<float, PeakEnvelope::kRawExtremes>;

constexpr float kInfinite = std::numeric_limits<float>::infinity();

Extremes extremesOf(std::span<const float> frames) {
  Extremes extremes;
  for (std::size_t i = 0; i < extremes.size(); ++i)
    extremes[i] = i % 2 == 0 ? -kInfinite : kInfinite;
  PlainAnalysisKernels::raiseExtremes(frames, WidthGrid::nodeGains().subspan(1), extremes);
  return extremes;
}

std::vector<float> randomFrames(std::mt19937& random, std::size_t count) {
  // Mostly of one kind: loud Mid, loud Side, one channel only, both the same.
  std::uniform_real_distribution<float> value(-1.0F, 1.0F);
  const float mid = std::fabs(value(random));
  const float side = random() % 4 == 0 ? 0.0F : std::fabs(value(random));
  std::vector<float> frames;
  for (std::size_t i = 0; i < count; ++i) {
    const float m = mid * value(random);
    const float s = random() % 3 == 0 ? m : side * value(random);
    frames.insert(frames.end(), {m, s});
  }
  return frames;
}

}  // namespace

TEST(PeakEnvelopeTest, WhatIsLeftOutWouldRaiseNothing) {
  std::mt19937 random(3);
  std::size_t leftOut = 0;
  for (int round = 0; round < 3000; ++round) {
    PeakEnvelope peaks(true);
    peaks.raise(randomFrames(random, 1 + random() % 6));
    const auto frames = randomFrames(random, 1 + random() % 6);
    PeakEnvelope raised = peaks;
    PeakEnvelope all(true);
    all.raise(frames);
    raised.merge(all);
    const bool isSame = raised == peaks;
    if (!peaks.mayRaise(extremesOf(frames), Values::Samples)) {
      ASSERT_TRUE(isSame) << round;
      ++leftOut;
    }
    if (!peaks.framesMayRaise(frames, Values::Samples)) {
      ASSERT_TRUE(isSame) << round;
    }
    peaks.raise(frames);
    ASSERT_TRUE(peaks == raised) << round;
  }
  EXPECT_GT(leftOut, 300U);
}

TEST(PeakEnvelopeTest, WhatIsLeftOutBetweenSamplesIsTooLowEvenWhenOversampled) {
  std::mt19937 random(4);
  std::size_t leftOut = 0;
  for (int round = 0; round < 2000; ++round) {
    PeakEnvelope peaks(true);
    peaks.raise(randomFrames(random, 2));
    auto frames = randomFrames(random, 1 + random() % 6);
    const bool isLeftOut = !peaks.mayRaise(extremesOf(frames), Values::Between);
    for (float& value : frames) value *= Oversampling::greatestGain();
    PeakEnvelope raised = peaks;
    raised.raise(frames);
    if (!isLeftOut) continue;
    ASSERT_TRUE(raised == peaks) << round;
    ++leftOut;
  }
  EXPECT_GT(leftOut, 100U);
}

TEST(PeakEnvelopeTest, SilenceIsLeftOutAtOnce) {
  const std::vector<float> silence(8);
  for (const bool isRaw : {false, true}) {
    const PeakEnvelope peaks(isRaw);
    EXPECT_FALSE(peaks.mayRaise(extremesOf(silence), Values::Samples));
    EXPECT_EQ(peaks.left(75), 0.0F);
  }
}

TEST(PeakEnvelopeTest, InfinityStopsNothingElse) {
  PeakEnvelope peaks(true);
  peaks.raise(std::vector<float>{0.5F, kInfinite, 0.25F, 0.25F});
  EXPECT_EQ(peaks.left(0), 0.25F);  // infinity times 0 is not a number
  EXPECT_EQ(peaks.left(1), kInfinite);
  const std::vector<float> more = {0.75F, 0.0F};
  EXPECT_TRUE(peaks.mayRaise(extremesOf(more), Values::Samples));
  peaks.raise(more);
  EXPECT_EQ(peaks.right(0), 0.75F);
}

TEST(PeakEnvelopeTest, WidthsOutsideCountAsTheNearest) {
  PeakEnvelope peaks(true);
  peaks.raise(std::vector<float>{0.5F, 0.25F});
  EXPECT_EQ(peaks.left(-3), 0.5F);
  EXPECT_EQ(peaks.left(1000), peaks.left(150));
  EXPECT_GT(peaks.left(150), 0.99F);
}

TEST(PeakEnvelopeTest, PlainFramesHaveOnePeakAChannel) {
  PeakEnvelope peaks(false);
  peaks.raise(std::vector<float>{0.5F, -0.25F, std::nanf(""), -0.75F});
  EXPECT_EQ(peaks.left(0), 0.5F);
  EXPECT_EQ(peaks.right(150), 0.75F);
  EXPECT_FALSE(peaks.framesMayRaise(std::vector<float>{-0.5F, 0.75F}, Values::Samples));
  EXPECT_TRUE(peaks.framesMayRaise(std::vector<float>{-0.5F, 0.76F}, Values::Samples));
  EXPECT_TRUE(peaks.framesMayRaise(std::vector<float>{-0.5F, 0.75F}, Values::Between));
}
