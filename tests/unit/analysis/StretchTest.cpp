// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// A stretch of a take: as bounds and whole blocks from the analysis of the take, and exactly from
// an analysis of the stretch.

#include <gtest/gtest.h>

#include <cmath>

#include "TestTake.h"
#include "analysis/TakeAnalysis.h"

namespace {

constexpr std::uint32_t kMiddleRate = 16000;

struct Stretch {
  std::uint64_t from;
  std::uint64_t to;
};

Frames cutOut(const Frames& frames, const Stretch& stretch) {
  return {frames.begin() + static_cast<std::ptrdiff_t>(2 * stretch.from),
          frames.begin() + static_cast<std::ptrdiff_t>(2 * stretch.to)};
}

TakeAnalyzer::Options only(const Stretch& stretch) {
  TakeAnalyzer::Options options;
  options.firstFrame = stretch.from;
  options.endFrame = stretch.to;
  return options;
}

constexpr Stretch kStretches[] = {{0, 16000},      {1, 2},          {777, 100003},
                                  {79999, 191000}, {100000, 99999}, {16000, 192000}};

}  // namespace

TEST(StretchTest, AnalysedByItselfIsTheAnalysisOfTheStretchCutOut) {
  const Frames frames = TestTake::wandering(kMiddleRate, 12, 1);
  for (const Stretch& stretch : kStretches) {
    if (stretch.from > stretch.to) continue;
    const auto got = TestTake::analyse(frames, kMiddleRate, true, only(stretch));
    const auto wanted = TestTake::analyse(cutOut(frames, stretch), kMiddleRate, true);
    EXPECT_TRUE(got->findings() == wanted->findings());
  }
}

TEST(StretchTest, OutsideTheTakeThereIsNothing) {
  const Frames frames = TestTake::wandering(kMiddleRate, 1, 1);
  EXPECT_EQ(TestTake::analyse(frames, kMiddleRate, true, only({20000, 30000}))->layout().frames(),
            0U);
  EXPECT_EQ(TestTake::analyse(frames, kMiddleRate, true, only({100, 50}))->layout().frames(), 0U);
  EXPECT_EQ(TestTake::analyse(frames, kMiddleRate, true, only({100, ~0ULL}))->layout().frames(),
            15900U);
}

// On whole blocks only what the filters carry over from before makes a difference.
TEST(StretchTest, LoudnessOfAStretchOfBlocksIsThatOfTheStretchCutOut) {
  const Frames frames = TestTake::wandering(kMiddleRate, 30, 2);
  const auto analysis = TestTake::analyse(frames, kMiddleRate, true);
  for (const Stretch stretch : {Stretch{16000, 200000}, Stretch{112000, 400000},
                                Stretch{320000, 480000}, Stretch{160000, 256000}}) {
    const TakeFigures wanted =
        TestTake::analyse(cutOut(frames, stretch), kMiddleRate, true)->at(90, 1);
    const TakeFigures got = analysis->at(90, 1, stretch.from, stretch.to);
    EXPECT_NEAR(got.integratedLufs.value_or(9), wanted.integratedLufs.value_or(99), 0.05);
    EXPECT_NEAR(got.shortTermMaxLufs.value_or(9), wanted.shortTermMaxLufs.value_or(99), 0.05);
    EXPECT_NEAR(got.momentaryMaxLufs.value_or(9), wanted.momentaryMaxLufs.value_or(99), 0.05);
    EXPECT_NEAR(got.rangeLu.value_or(9), wanted.rangeLu.value_or(99), 0.05);
    EXPECT_NEAR(got.correlation.value_or(9), wanted.correlation.value_or(99), 1e-6);
  }
}

TEST(StretchTest, PeaksAreBoundsThatAreCloseAndNeverLow) {
  const Frames frames = TestTake::wandering(kMiddleRate, 12, 3);
  const auto analysis = TestTake::analyse(frames, kMiddleRate, true);
  for (const Stretch& stretch : kStretches) {
    if (stretch.from > stretch.to) continue;
    for (const int width : {0, 60, 133}) {
      const TakeFigures wanted =
          TestTake::analyse(cutOut(frames, stretch), kMiddleRate, true)->at(width, 2);
      const TakeFigures got = analysis->at(width, 2, stretch.from, stretch.to);
      EXPECT_TRUE(got.arePeaksBounds);
      EXPECT_GE(got.peakLeft, wanted.peakLeft);
      EXPECT_GE(got.peakRight, wanted.peakRight);
      EXPECT_GE(got.samplePeakDbfs.value_or(-999), wanted.samplePeakDbfs.value_or(0));
      EXPECT_GE(got.truePeakDbtp.value_or(-999), wanted.truePeakDbtp.value_or(0));
    }
  }
}

TEST(StretchTest, TheWholeTakeIsExact) {
  const Frames frames = TestTake::wandering(kMiddleRate, 5, 4);
  const auto analysis = TestTake::analyse(frames, kMiddleRate, true);
  const TakeFigures figures = analysis->at(60, 0, 0, ~0ULL);
  EXPECT_FALSE(figures.arePeaksBounds);
  EXPECT_EQ(figures.truePeakDbtp, analysis->at(60, 0).truePeakDbtp);
}

TEST(StretchTest, AnEmptyStretchHasNoFigures) {
  const Frames frames = TestTake::wandering(kMiddleRate, 5, 4);
  const TakeFigures figures = TestTake::analyse(frames, kMiddleRate, true)->at(60, 0, 5000, 5000);
  EXPECT_FALSE(figures.integratedLufs);
  EXPECT_FALSE(figures.samplePeakDbfs);
  EXPECT_FALSE(figures.correlation);
}
