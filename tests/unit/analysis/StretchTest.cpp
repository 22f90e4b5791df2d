// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// A stretch of a take: as bounds and whole blocks from the analysis of the take, and exactly from
// an analysis of the stretch.

#include <gtest/gtest.h>

#include <cmath>

#include "PlainMeter.h"
#include "TestTake.h"
#include "analysis/TakeAnalysis.h"

namespace {

constexpr std::uint32_t kMiddleRate = 16000;
constexpr std::uint32_t kRecorderRate = 48000;

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

void expectNear(const std::optional<double>& got, const std::optional<double>& wanted,
                double tolerance) {
  ASSERT_EQ(got.has_value(), wanted.has_value());
  EXPECT_NEAR(got.value_or(0), wanted.value_or(0), tolerance);
}

void expectLoudness(const TakeFigures& got, const TakeFigures& wanted, double tolerance) {
  expectNear(got.integratedLufs, wanted.integratedLufs, tolerance);
  expectNear(got.shortTermMaxLufs, wanted.shortTermMaxLufs, tolerance);
  expectNear(got.momentaryMaxLufs, wanted.momentaryMaxLufs, tolerance);
  expectNear(got.rangeLu, wanted.rangeLu, tolerance);
  expectNear(got.correlation, wanted.correlation, 1e-6);
}

// To the nearest block.
Stretch rounded(const Stretch& stretch, const TakeLayout& layout) {
  const std::uint64_t block = layout.blockFrames();
  const auto nearest = [block](std::uint64_t frame) { return (frame + block / 2) / block * block; };
  return {nearest(stretch.from), nearest(stretch.to)};
}

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

// Decoded and gone through the plain way.
TEST(StretchTest, AnalysedByItselfItIsExactAtAnyWidth) {
  for (const std::uint32_t rate : {kMiddleRate, kRecorderRate}) {
    const Frames frames = TestTake::wandering(rate, 9, 5);
    for (const Stretch& part :
         {Stretch{rate / 3, 4 * rate + 77}, {5 * rate - 1, 9 * rate - 1234}}) {
      const auto analysis = TestTake::analyse(frames, rate, true, only(part));
      for (const int width : {0, 14, 45, 90, 120, 150}) {
        SCOPED_TRACE(width);
        const Frames leftRight = TestTake::decoded(cutOut(frames, part), width);
        const TakeFigures wanted = PlainMeter::measure(leftRight, rate, 0);
        const TakeFigures got = analysis->at(width, 0);
        EXPECT_FALSE(got.arePeaksBounds);
        EXPECT_EQ(got.peakLeft, wanted.peakLeft);
        EXPECT_EQ(got.peakRight, wanted.peakRight);
        expectNear(got.truePeakDbtp, wanted.truePeakDbtp, 1e-4);
        expectLoudness(got, wanted, 1e-3);
      }
    }
  }
}

// On whole blocks only what the filters carry over from before makes a difference.
TEST(StretchTest, LoudnessOfAStretchOfBlocksIsThatOfTheStretchCutOut) {
  for (const std::uint32_t rate : {kMiddleRate, kRecorderRate}) {
    const Frames frames = TestTake::wandering(rate, 30, 2);
    const auto analysis = TestTake::analyse(frames, rate, true);
    const std::uint64_t block = analysis->layout().blockFrames();
    for (const Stretch blocks : {Stretch{10, 125}, {70, 250}, {200, 300}, {100, 160}}) {
      const Stretch stretch{block * blocks.from, block * blocks.to};
      const auto wanted = TestTake::analyse(cutOut(frames, stretch), rate, true);
      for (const int width : {0, 14, 45, 90, 120, 150}) {
        SCOPED_TRACE(width);
        expectLoudness(analysis->at(width, 1, stretch.from, stretch.to), wanted->at(width, 1),
                       0.05);
      }
    }
  }
}

TEST(StretchTest, LoudnessOfAnyStretchIsThatOfTheBlocksThatAreForTheBetterPartInside) {
  for (const std::uint32_t rate : {kMiddleRate, kRecorderRate}) {
    const auto analysis = TestTake::analyse(TestTake::wandering(rate, 12, 2), rate, true);
    const std::uint64_t half = analysis->layout().blockFrames() / 2;
    const Stretch all[] = {{half, 9 * rate},
                           {half - 1, 9 * rate + half - 1},
                           {777, 11 * rate + half},
                           {6 * rate + 1, 10 * rate - half - 1}};
    for (const Stretch& stretch : all) {
      const Stretch blocks = rounded(stretch, analysis->layout());
      for (const int width : {0, 90, 150}) {
        SCOPED_TRACE(width);
        expectLoudness(analysis->at(width, 1, stretch.from, stretch.to),
                       analysis->at(width, 1, blocks.from, blocks.to), 0);
      }
    }
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
