// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/Waveform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "TestTake.h"
#include "analysis/TakeAnalysis.h"

namespace {

constexpr std::uint32_t kRate = 8000;

using Truth = Waveform::Column;

void expectClose(float got, float truth, float allowed, int width) {
  ASSERT_GE(got, truth) << "width " << width;
  ASSERT_LE(got - truth, allowed) << "width " << width;
}

float peakOfSide(const Truth& midSide) {
  return std::max(midSide.greatestRight, -midSide.leastRight);
}

// How far a straight line between two nodes may lie over the peak of both channels.
float mostOverPeak(const Truth& truth, const Truth& midSide, int width) {
  return width < 15 ? 0.0164F * peakOfSide(midSide) : 0.0518F * TestTake::peakOf(truth);
}

// What the line, and 16 bits, add to an edge.
float mostOverEdge(const Truth& truth, const Truth& midSide, int width) {
  const float line =
      width < 111 ? 0.1441F * peakOfSide(midSide) : 0.1036F * TestTake::peakOf(truth);
  return line + (TestTake::peakOf(truth) + line) / 127.0F;
}

// An edge over `least`, which is the truth, and not far over `most`.
void expectBetween(float got, float least, float most, float allowed) {
  ASSERT_GE(got, least);
  ASSERT_LE(got - most, allowed);
}

void expectBetween(const Waveform::Column& column, const Truth& least, const Truth& most,
                   float allowed) {
  expectBetween(column.greatestLeft, least.greatestLeft, most.greatestLeft, allowed);
  expectBetween(-column.leastLeft, -least.leastLeft, -most.leastLeft, allowed);
  expectBetween(column.greatestRight, least.greatestRight, most.greatestRight, allowed);
  expectBetween(-column.leastRight, -least.leastRight, -most.leastRight, allowed);
}

void expectClose(const Waveform::Column& column, const Truth& truth, float allowed, int width) {
  expectClose(column.greatestLeft, truth.greatestLeft, allowed, width);
  expectClose(-column.leastLeft, -truth.leastLeft, allowed, width);
  expectClose(column.greatestRight, truth.greatestRight, allowed, width);
  expectClose(-column.leastRight, -truth.leastRight, allowed, width);
}

// Columns that begin and end with blocks.
void expectCloseColumns(const Frames& midSide, std::size_t columns) {
  const auto analysis = TestTake::analyse(midSide, kRate, true);
  for (int width = 0; width <= 150; width += 3) {
    const Frames leftRight = TestTake::decoded(midSide, width);
    const Waveform waveform = analysis->waveform(width, 0, 0, midSide.size() / 2, columns);
    for (std::size_t i = 0; i < columns; ++i) {
      const std::uint64_t from = waveform.columnStart(i);
      const std::uint64_t to = waveform.columnStart(i + 1);
      const Truth truth = TestTake::truthOf(leftRight, from, to);
      const Truth source = TestTake::truthOf(midSide, from, to);
      const float allowed = mostOverEdge(truth, source, width);
      ASSERT_NO_FATAL_FAILURE(expectClose(waveform.columns[i], truth, allowed, width));
      const float most = TestTake::peakOf(truth) + mostOverPeak(truth, source, width);
      ASSERT_LE(TestTake::peakOf(waveform.columns[i]), most * (1 + 1.0F / 127)) << width;
    }
  }
}

// How high the louder channel of a column reads, in dB.
double decibelsHigh(const Waveform::Column& column, const Truth& truth) {
  return 20 * std::log10(static_cast<double>(TestTake::peakOf(column) / TestTake::peakOf(truth)));
}

Frames phaseShifted(double degrees, double sideLevel) {
  Frames frames;
  for (int i = 0; i < 8 * 400; ++i) {
    const double turn = 2 * std::numbers::pi * 441 * i / kRate;
    frames.push_back(static_cast<float>(0.5 * std::sin(turn)));
    frames.push_back(
        static_cast<float>(0.5 * sideLevel * std::sin(turn + degrees * std::numbers::pi / 180)));
  }
  return frames;
}

}  // namespace

TEST(WaveformTest, NoiseNeverReadsLowNorHighBeyondTheBound) {
  expectCloseColumns(TestTake::wandering(kRate, 8, 1), 80);
  expectCloseColumns(TestTake::wandering(kRate, 8, 2), 16);
}

TEST(WaveformTest, TonesNeverReadLowNorHighBeyondTheBound) {
  for (double degrees = 0; degrees < 360; degrees += 22.5) {
    SCOPED_TRACE(degrees);
    expectCloseColumns(phaseShifted(degrees, 1.0), 4);
    expectCloseColumns(phaseShifted(degrees, 0.3), 4);
    expectCloseColumns(phaseShifted(degrees, 2.5), 4);
    expectCloseColumns(phaseShifted(degrees, 12.0), 2);
  }
}

namespace {

// The worst there is: a frame of Mid alone and one of Side alone that are as loud at this width.
double worstHigh(int width) {
  double worst = 0;
  for (const float level : {0.2F, 0.5F, 0.77F, 0.9F, 1.0F, 1.1F, 3.0F}) {
    Frames midSide(2 * 400);
    midSide[100] = 0.5F;
    midSide[301] = 0.5F * level / SideGain::factor(width);
    const Waveform waveform =
        TestTake::analyse(midSide, kRate, true)->waveform(width, 0, 0, 400, 1);
    const Truth truth = TestTake::truthOf(TestTake::decoded(midSide, width), 0, 400);
    EXPECT_GE(TestTake::peakOf(waveform.columns[0]), TestTake::peakOf(truth)) << width;
    worst = std::max(worst, decibelsHigh(waveform.columns[0], truth));
  }
  return worst;
}

double worstHigh(int fromWidth, int toWidth) {
  double worst = 0;
  for (int width = fromWidth; width <= toWidth; ++width) worst = std::max(worst, worstHigh(width));
  return worst;
}

}  // namespace

TEST(WaveformTest, AtMostHalfADecibelHighHoweverLoudSideIs) {
  const double worst = worstHigh(15, 150);
  EXPECT_LT(worst, 0.5);
  EXPECT_GT(worst, 0.4) << "the worst there is has been tried";
}

// Side has to be more than 10 dB over Mid for that.
TEST(WaveformTest, NearlyMonoSideMayReadHigherByTheBoundThatIsStated) {
  const double worst = worstHigh(1, 14);
  EXPECT_LT(worst, 2.75);
  EXPECT_GT(worst, 2.0);
}

TEST(WaveformTest, ColumnsMergeBinsAndNeverSampleThem) {
  Frames midSide(2 * 40 * kRate);
  const std::size_t peak = 2 * 123457;
  midSide[peak] = 0.75F;
  const auto analysis = TestTake::analyse(midSide, kRate, true);
  for (const std::size_t columns : {1U, 2U, 3U, 7U, 50U, 799U, 800U, 5000U}) {
    const Waveform waveform = analysis->waveform(37, 0, 0, midSide.size() / 2, columns);
    std::size_t seen = 0;
    for (std::size_t i = 0; i < columns; ++i) {
      if (waveform.columns[i].greatestLeft > 0) ++seen;
      const bool isInside =
          peak / 2 >= waveform.columnStart(i) && peak / 2 < waveform.columnStart(i + 1);
      if (!isInside) continue;
      ASSERT_GE(waveform.columns[i].greatestLeft, 0.75F) << i << " of " << columns;
    }
    ASSERT_GE(seen, 1U);
    ASSERT_LE(seen, 1 + columns / 800 + 1);
  }
}

// A column that begins or ends within a block reads as if all of the block belonged to it.
TEST(WaveformTest, AnyStretchAtAnyZoomHidesNothingAndReadsNoHigherThanTheBlocksThatItTouches) {
  constexpr int kWidth = 97;
  const Frames midSide = TestTake::wandering(kRate, 6, 5);
  const Frames leftRight = TestTake::decoded(midSide, kWidth);
  const auto analysis = TestTake::analyse(midSide, kRate, true);
  const std::uint64_t block = analysis->layout().blockFrames();
  for (std::uint64_t from = 0; from < 40000; from += 3571) {
    for (std::uint64_t length = 1; from + length <= 48000; length = 3 * length + 17) {
      const Waveform waveform = analysis->waveform(kWidth, 0, from, from + length, 13);
      for (std::size_t i = 0; i < 13; ++i) {
        const std::uint64_t begin = waveform.columnStart(i);
        const std::uint64_t end = std::max(begin + 1, waveform.columnStart(i + 1));
        const std::uint64_t first = begin / block * block;
        const std::uint64_t last = (end + block - 1) / block * block;
        const Truth most = TestTake::truthOf(leftRight, first, last);
        const Truth source = TestTake::truthOf(midSide, first, last);
        const Waveform::Column& column = waveform.columns[i];
        ASSERT_NO_FATAL_FAILURE(expectBetween(column, TestTake::truthOf(leftRight, begin, end),
                                              most, mostOverEdge(most, source, kWidth)));
        const float peak = TestTake::peakOf(most) + mostOverPeak(most, source, kWidth);
        ASSERT_LE(TestTake::peakOf(column), peak * (1 + 1.0F / 127));
      }
    }
  }
}

TEST(WaveformTest, AGainIsAFactor) {
  const Frames midSide = TestTake::wandering(kRate, 3, 6);
  const auto analysis = TestTake::analyse(midSide, kRate, true);
  const Waveform plain = analysis->waveform(120, 0, 0, 24000, 10);
  const Waveform louder = analysis->waveform(120, 20, 0, 24000, 10);
  for (std::size_t i = 0; i < 10; ++i) {
    EXPECT_NEAR(louder.columns[i].greatestLeft, 10 * plain.columns[i].greatestLeft, 1e-4);
    EXPECT_EQ(louder.columns[i].mayClip,
              std::max({louder.columns[i].greatestLeft, louder.columns[i].greatestRight,
                        -louder.columns[i].leastLeft, -louder.columns[i].leastRight}) > 1);
  }
}

TEST(WaveformTest, LeftRightTakesReadAsTheyAre) {
  const Frames frames = TestTake::decoded(TestTake::wandering(kRate, 4, 8), 110);
  const auto analysis = TestTake::analyse(frames, kRate, false);
  const Waveform waveform = analysis->waveform(3, 0, 0, frames.size() / 2, 40);
  for (std::size_t i = 0; i < 40; ++i) {
    const Truth truth =
        TestTake::truthOf(frames, waveform.columnStart(i), waveform.columnStart(i + 1));
    expectClose(waveform.columns[i], truth, 1.0F / 127, 3);
  }
}
