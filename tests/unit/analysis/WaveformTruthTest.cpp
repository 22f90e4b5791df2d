// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/WaveformTruth.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>

#include "TestTake.h"

namespace {

constexpr std::uint32_t kRate = 8000;

bool clips(const Frames& leftRight, std::uint64_t from, std::uint64_t to, float gain) {
  return std::any_of(leftRight.begin() + static_cast<std::ptrdiff_t>(2 * from),
                     leftRight.begin() + static_cast<std::ptrdiff_t>(2 * to),
                     [gain](float sample) { return std::fabs(sample * gain) > 1.0F; });
}

}  // namespace

TEST(WaveformTruthTest, AColumnIsMarkedWhereItClipsAndNowhereElse) {
  const Frames midSide = TestTake::wandering(kRate, 8, 1);
  const auto reader = TestTake::reader(midSide, kRate, true);
  const auto analysis = TakeAnalyzer(*reader).wait();
  std::size_t unmarked = 0;
  for (const double gain : {0.0, 3.0, 6.0, 9.0, 12.0}) {
    for (const int width : {10, 90, 147}) {
      const Frames leftRight = TestTake::decoded(midSide, width);
      Waveform waveform = analysis->waveform(width, gain, 0, 64000, 300);
      const Waveform before = waveform;
      ASSERT_TRUE(WaveformTruth(*reader, 0, width, gain).settle(waveform));
      for (std::size_t i = 0; i < 300; ++i) {
        const auto factor = static_cast<float>(std::pow(10.0, gain / 20));
        ASSERT_EQ(waveform.columns[i].mayClip,
                  clips(leftRight, waveform.columnStart(i), waveform.columnStart(i + 1), factor));
        ASSERT_LE(waveform.columns[i].greatestLeft, before.columns[i].greatestLeft);
        if (before.columns[i].mayClip && !waveform.columns[i].mayClip) ++unmarked;
      }
    }
  }
  EXPECT_GT(unmarked, 0U);
}

TEST(WaveformTruthTest, AStretchCountsFromItsFirstFrame) {
  Frames frames(2 * kRate);
  frames[2 * 5000] = 1.5F;
  const auto reader = TestTake::reader(frames, kRate, false);
  TakeAnalyzer::Options options;
  options.firstFrame = 4000;
  const auto analysis = TakeAnalyzer(*reader, options).wait();
  Waveform waveform = analysis->waveform(120, 0, 0, 4000, 40);
  ASSERT_TRUE(WaveformTruth(*reader, 4000, 120, 0).settle(waveform));
  for (std::size_t i = 0; i < 40; ++i) EXPECT_EQ(waveform.columns[i].mayClip, i == 10) << i;
  EXPECT_EQ(waveform.columns[10].greatestLeft, 1.5F);
}

TEST(WaveformTruthTest, CancelEndsIt) {
  const auto reader = TestTake::reader(Frames(2 * kRate, 2.0F), kRate, false);
  Waveform waveform = TakeAnalyzer(*reader).wait()->waveform(120, 0, 0, kRate, 4);
  const std::atomic<bool> cancel{true};
  EXPECT_FALSE(WaveformTruth(*reader, 0, 120, 0).settle(waveform, &cancel));
}
