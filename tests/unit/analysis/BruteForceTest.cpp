// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Every figure from one pass, held to the plain way: decode at the width, then measure.

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>

#include "PlainMeter.h"
#include "TestTake.h"
#include "analysis/TakeAnalysis.h"
#include "dsp/Kernels.h"

namespace {

void expectNear(const std::optional<double>& got, const std::optional<double>& wanted,
                double tolerance, const char* name, int width) {
  ASSERT_EQ(got.has_value(), wanted.has_value()) << name << " at width " << width;
  if (got) {
    ASSERT_NEAR(*got, *wanted, tolerance) << name << " at width " << width;
  }
}

void expectFigures(const TakeFigures& got, const TakeFigures& wanted, int width) {
  expectNear(got.integratedLufs, wanted.integratedLufs, 1e-4, "integrated", width);
  expectNear(got.momentaryMaxLufs, wanted.momentaryMaxLufs, 1e-4, "momentary", width);
  expectNear(got.shortTermMaxLufs, wanted.shortTermMaxLufs, 1e-4, "short-term", width);
  expectNear(got.rangeLu, wanted.rangeLu, 1e-3, "range", width);
  expectNear(got.truePeakDbtp, wanted.truePeakDbtp, 1e-4, "true peak", width);
  expectNear(got.samplePeakDbfs, wanted.samplePeakDbfs, 1e-9, "sample peak", width);
  expectNear(got.correlation, wanted.correlation, 1e-6, "correlation", width);
  expectNear(got.balanceDb, wanted.balanceDb, 1e-4, "balance", width);
}

// As the first pass of a normalised export finds it.
float peakOf(const Frames& midSide, int width) {
  return Kernels::peakMagnitude(TestTake::decoded(midSide, width), 0.0F);
}

void expectAsPlain(const Frames& midSide, std::uint32_t rate, int step) {
  const auto analysis = TestTake::analyse(midSide, rate, true);
  ASSERT_NE(analysis, nullptr);
  for (int width = 0; width <= 150; width += step) {
    const double gain = width % 13 - 6.5;
    const Frames leftRight = TestTake::decoded(midSide, width);
    ASSERT_NO_FATAL_FAILURE(expectFigures(analysis->at(width, gain),
                                          PlainMeter::measure(leftRight, rate, gain), width));
    ASSERT_EQ(std::bit_cast<std::uint32_t>(analysis->samplePeak(width)),
              std::bit_cast<std::uint32_t>(peakOf(midSide, width)))
        << "width " << width;
  }
}

}  // namespace

TEST(BruteForceTest, NoiseAtAllWidths) {
  expectAsPlain(TestTake::wandering(8000, 13.03, 1), 8000, 1);
}

TEST(BruteForceTest, TonesAtAllWidths) {
  expectAsPlain(TestTake::tones(11025, 6.7), 11025, 1);
}

TEST(BruteForceTest, TheRateOfTheRecorder) {
  expectAsPlain(TestTake::wandering(48000, 6.2, 2), 48000, 15);
  expectAsPlain(TestTake::tones(48000, 9.4), 48000, 25);
}

TEST(BruteForceTest, NoiseAtAllWidthsAtTheRateOfTheRecorder) {
  expectAsPlain(TestTake::wandering(48000, 3.2, 8), 48000, 1);
}

TEST(BruteForceTest, TonesAtAllWidthsAtTheRateOfTheRecorder) {
  expectAsPlain(TestTake::tones(48000, 3.2), 48000, 1);
}

TEST(BruteForceTest, RatesWithLessOversampling) {
  expectAsPlain(TestTake::wandering(96000, 3.3, 3), 96000, 30);
  expectAsPlain(TestTake::wandering(192000, 3.1, 4), 192000, 75);
}

TEST(BruteForceTest, RatesThatAreNoMultipleOfTen) {
  expectAsPlain(TestTake::wandering(44107, 5.1, 5), 44107, 50);
}

TEST(BruteForceTest, SamplePeakToTheBitAtAllWidths) {
  for (std::uint32_t seed = 10; seed < 16; ++seed) {
    const Frames midSide = TestTake::wandering(48000, 2.5, seed);
    const auto analysis = TestTake::analyse(midSide, 48000, true);
    for (int width = 0; width <= 150; ++width) {
      ASSERT_EQ(std::bit_cast<std::uint32_t>(analysis->samplePeak(width)),
                std::bit_cast<std::uint32_t>(peakOf(midSide, width)))
          << "width " << width << " seed " << seed;
    }
  }
}

TEST(BruteForceTest, LeftAndRightHavePeaksOfTheirOwn) {
  const Frames midSide = TestTake::wandering(8000, 6, 7);
  const auto analysis = TestTake::analyse(midSide, 8000, true);
  for (int width = 0; width <= 150; ++width) {
    const TakeFigures wanted = PlainMeter::measure(TestTake::decoded(midSide, width), 8000, 0);
    ASSERT_EQ(analysis->at(width, 0).peakLeft, wanted.peakLeft) << width;
    ASSERT_EQ(analysis->at(width, 0).peakRight, wanted.peakRight) << width;
  }
}

TEST(BruteForceTest, LeftRightTakesCountAsTheyAre) {
  const Frames frames = TestTake::decoded(TestTake::wandering(16000, 8, 6), 100);
  const auto analysis = TestTake::analyse(frames, 16000, false);
  const TakeFigures wanted = PlainMeter::measure(frames, 16000, 3);
  for (const int width : {0, 77, 150}) {
    expectFigures(analysis->at(width, 3), wanted, width);
    EXPECT_EQ(analysis->samplePeak(width), Kernels::peakMagnitude(frames, 0.0F));
  }
}
