// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/CloseUp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <limits>

#include "TestTake.h"

namespace {

constexpr std::uint32_t kLowRate = 8000;

void expectTrue(const Waveform& waveform, const Frames& leftRight) {
  constexpr float kHalfDecibel = 1.0593F;
  for (std::size_t i = 0; i < waveform.columns.size(); ++i) {
    const Waveform::Column& column = waveform.columns[i];
    const std::uint64_t begin = waveform.columnStart(i);
    const std::uint64_t end = std::max(begin + 1, waveform.columnStart(i + 1));
    const Waveform::Column truth = TestTake::truthOf(leftRight, begin, end);
    ASSERT_TRUE(column.isKnown);
    ASSERT_GE(column.greatestLeft, truth.greatestLeft) << i;
    ASSERT_LE(column.leastLeft, truth.leastLeft) << i;
    ASSERT_GE(column.greatestRight, truth.greatestRight) << i;
    ASSERT_LE(column.leastRight, truth.leastRight) << i;
    ASSERT_LE(TestTake::peakOf(column), TestTake::peakOf(truth) * kHalfDecibel) << i;
  }
}

}  // namespace

TEST(CloseUpTest, EachColumnIsTrueHoweverNarrow) {
  const Frames midSide = TestTake::wandering(kLowRate, 6, 5);
  const auto reader = TestTake::reader(midSide, kLowRate, true);
  for (const std::uint64_t length : {1U, 5U, 300U, 2400U, 40000U}) {
    const auto closeUp = CloseUp::read(*reader, 7001, 7001 + length, 300);
    ASSERT_TRUE(closeUp);
    for (const int width : {0, 15, 40, 97, 124, 150}) {
      SCOPED_TRACE(width);
      expectTrue(closeUp->at(width, 0), TestTake::decoded(midSide, width));
    }
  }
}

TEST(CloseUpTest, TakesThatAreNotRawReadAsTheyAre) {
  const Frames frames = TestTake::decoded(TestTake::wandering(kLowRate, 2, 8), 110);
  const auto reader = TestTake::reader(frames, kLowRate, false);
  const auto closeUp = CloseUp::read(*reader, 100, 9000, 77);
  ASSERT_TRUE(closeUp);
  expectTrue(closeUp->at(3, 0), frames);
}

TEST(CloseUpTest, AGainIsAFactor) {
  const auto reader = TestTake::reader(TestTake::wandering(kLowRate, 2, 8), kLowRate, true);
  const auto closeUp = CloseUp::read(*reader, 4000, 4100, 5);
  const Waveform plain = closeUp->at(100, 0);
  const Waveform louder = closeUp->at(100, 20);
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_NEAR(louder.columns[i].greatestLeft, 10 * plain.columns[i].greatestLeft, 1e-4);
  }
}

TEST(CloseUpTest, WhatIsNotANumberCountsAsNothing) {
  Frames frames(2 * 100, 0.25F);
  frames[2 * 50] = std::numeric_limits<float>::quiet_NaN();
  const auto reader = TestTake::reader(frames, kLowRate, true);
  const Waveform waveform = CloseUp::read(*reader, 0, 100, 10)->at(120, 0);
  EXPECT_NEAR(waveform.columns[5].greatestLeft, 0.5, 1e-5);
}

TEST(CloseUpTest, KnowsWhatItIsOf) {
  const auto reader = TestTake::reader(Frames(2 * 100), kLowRate, true);
  const auto closeUp = CloseUp::read(*reader, 10, 1000, 10);
  EXPECT_TRUE(closeUp->isOf(10, 100, 10)) << "to the end of the take";
  EXPECT_FALSE(closeUp->isOf(10, 100, 11));
  EXPECT_FALSE(closeUp->isOf(11, 100, 10));
  EXPECT_TRUE(CloseUp::read(*reader, 200, 300, 10)->isOf(100, 100, 10)) << "beyond the end";
  EXPECT_FALSE(CloseUp::read(*reader, 200, 300, 10)->at(3, 0).columns[0].isKnown);
}

TEST(CloseUpTest, CancelEndsIt) {
  const auto reader = TestTake::reader(Frames(2 * kLowRate), kLowRate, true);
  const std::atomic<bool> cancel{true};
  EXPECT_FALSE(CloseUp::read(*reader, 0, kLowRate, 4, &cancel));
}
