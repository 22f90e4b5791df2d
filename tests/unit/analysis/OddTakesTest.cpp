// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Takes that no recorder should write, and what is said of them.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "PlainMeter.h"
#include "TestTake.h"
#include "analysis/TakeAnalysis.h"
#include "support/WaveBytes.h"

namespace {

constexpr float kFar = std::numeric_limits<float>::infinity();
constexpr std::uint32_t kOddRate = 8000;

void expectNoLoudness(const TakeFigures& figures) {
  EXPECT_FALSE(figures.integratedLufs);
  EXPECT_FALSE(figures.rangeLu);
  EXPECT_FALSE(figures.momentaryMaxLufs);
  EXPECT_FALSE(figures.shortTermMaxLufs);
}

void expectNothing(const TakeFigures& figures) {
  expectNoLoudness(figures);
  EXPECT_FALSE(figures.truePeakDbtp);
  EXPECT_FALSE(figures.samplePeakDbfs);
  EXPECT_FALSE(figures.correlation);
  EXPECT_FALSE(figures.balanceDb);
  EXPECT_FALSE(figures.isOverFullScale());
}

std::shared_ptr<const TakeAnalysis> analyse(const WaveBytes& file, bool isRaw) {
  const auto reader = WaveFileReader::readFromData(file.get());
  reader->setIsBoMSFormat(isRaw);
  return TakeAnalyzer(*reader).wait();
}

}  // namespace

TEST(OddTakesTest, NoFrame) {
  for (const bool isRaw : {false, true}) {
    const auto analysis = TestTake::analyse({}, kOddRate, isRaw);
    ASSERT_NE(analysis, nullptr);
    EXPECT_TRUE(analysis->isComplete());
    expectNothing(analysis->at(120, 0));
    expectNothing(analysis->at(120, 0, 3, 5));
    EXPECT_FALSE(analysis->momentaryLufs(120, 0, 0));
    const Waveform waveform = analysis->waveform(120, 0, 0, 100, 7);
    ASSERT_EQ(waveform.columns.size(), 7U);
    EXPECT_FALSE(waveform.columns[0].isKnown);
  }
}

TEST(OddTakesTest, OneFrame) {
  const auto analysis = TestTake::analyse({0.5F, 0.25F}, kOddRate, true);
  const TakeFigures figures = analysis->at(120, 6);
  expectNoLoudness(figures);
  EXPECT_NEAR(figures.samplePeakDbfs.value_or(99), 20 * std::log10(0.75) + 6, 1e-6);
  EXPECT_NEAR(figures.truePeakDbtp.value_or(99), 20 * std::log10(0.75) + 6, 1e-6);
  EXPECT_NEAR(figures.correlation.value_or(99), 1, 1e-9);
  EXPECT_NEAR(figures.balanceDb.value_or(99), 20 * std::log10(3.0), 1e-6);
  const Waveform waveform = analysis->waveform(120, 0, 0, 1, 3);
  EXPECT_TRUE(waveform.columns[2].isKnown);
  EXPECT_NEAR(waveform.columns[2].greatestLeft, 0.75, 0.01);
}

TEST(OddTakesTest, Silence) {
  for (const bool isRaw : {false, true}) {
    const auto analysis = TestTake::analyse(Frames(2 * 5 * kOddRate), kOddRate, isRaw);
    expectNothing(analysis->at(120, 36));
    EXPECT_TRUE(analysis->waveform(120, 0, 0, kOddRate, 1).columns[0].isKnown);
    EXPECT_EQ(analysis->waveform(120, 0, 0, kOddRate, 1).columns[0].greatestLeft, 0.0F);
  }
}

TEST(OddTakesTest, OneSilentChannel) {
  Frames frames = TestTake::wandering(kOddRate, 4, 1);
  for (std::size_t i = 1; i < frames.size(); i += 2) frames[i] = 0;
  const TakeFigures plain = TestTake::analyse(frames, kOddRate, false)->at(120, 0);
  EXPECT_FALSE(plain.correlation);
  EXPECT_FALSE(plain.balanceDb);
  EXPECT_TRUE(plain.integratedLufs);
  const TakeFigures mono = TestTake::analyse(frames, kOddRate, true)->at(120, 0);
  EXPECT_NEAR(mono.correlation.value_or(99), 1, 1e-9);
  EXPECT_NEAR(mono.balanceDb.value_or(99), 0, 1e-9);
}

TEST(OddTakesTest, Antiphase) {
  Frames frames = TestTake::wandering(kOddRate, 4, 1);
  for (std::size_t i = 0; i < frames.size(); i += 2) frames[i] = 0;
  const auto analysis = TestTake::analyse(frames, kOddRate, true);
  EXPECT_NEAR(analysis->at(120, 0).correlation.value_or(99), -1, 1e-9);
  EXPECT_FALSE(analysis->at(0, 0).correlation);  // width 0 leaves Mid, and Mid is silent
  EXPECT_FALSE(analysis->at(0, 0).integratedLufs);
}

TEST(OddTakesTest, WhatIsNotANumberIsSilenceAndLeavesTheRestAsItIs) {
  const Frames clean = TestTake::wandering(kOddRate, 6, 2);
  Frames holed = clean;
  Frames silenced = clean;
  for (const std::size_t at : {0U, 5001U, 30000U, 30003U, 95999U}) {
    holed[at] = at % 2 == 0 ? std::nanf("") : -std::nanf("");
    silenced[at] = 0.0F;
  }
  const auto got = TestTake::analyse(holed, kOddRate, true);
  const auto wanted = TestTake::analyse(silenced, kOddRate, true);
  for (std::size_t i = 0; i < wanted->findings().units.size(); ++i) {
    EXPECT_EQ(got->findings().units[i]->blocks, wanted->findings().units[i]->blocks) << i;
  }
  EXPECT_TRUE(got->findings().truePeaks == wanted->findings().truePeaks);
  EXPECT_EQ(got->at(100, 0).integratedLufs, wanted->at(100, 0).integratedLufs);
}

TEST(OddTakesTest, InfinityIsASamplePeakAndClipsButIsNotHeard) {
  Frames frames = TestTake::wandering(kOddRate, 6, 2);
  Frames silenced = frames;
  frames[30001] = kFar;
  silenced[30001] = 0.0F;
  const auto analysis = TestTake::analyse(frames, kOddRate, true);
  const auto wanted = TestTake::analyse(silenced, kOddRate, true);
  EXPECT_EQ(analysis->samplePeak(1), kFar);
  EXPECT_FALSE(analysis->at(1, 0).samplePeakDbfs);
  EXPECT_TRUE(analysis->at(1, 0).isOverFullScale());
  EXPECT_EQ(analysis->at(75, 0).integratedLufs, wanted->at(75, 0).integratedLufs);
  EXPECT_LT(analysis->samplePeak(0), 1.0F);
  EXPECT_TRUE(analysis->waveform(75, -36, 0, frames.size() / 2, 1).columns[0].mayClip);
}

TEST(OddTakesTest, NothingButBrokenSamples) {
  const Frames frames(20000, std::nanf(""));
  for (const bool isRaw : {false, true}) {
    expectNothing(TestTake::analyse(frames, kOddRate, isRaw)->at(120, 0));
  }
}

TEST(OddTakesTest, Denormals) {
  Frames frames(2 * 5 * kOddRate, std::numeric_limits<float>::denorm_min());
  frames[3] = 100 * std::numeric_limits<float>::denorm_min();
  const auto analysis = TestTake::analyse(frames, kOddRate, true);
  expectNoLoudness(analysis->at(120, 36));
  EXPECT_NEAR(analysis->at(0, 0).samplePeakDbfs.value_or(99), 20 * std::log10(1.4e-45), 0.1);
  EXPECT_EQ(analysis->samplePeak(120), 101 * std::numeric_limits<float>::denorm_min());
}

TEST(OddTakesTest, EnormousNumbers) {
  Frames frames = TestTake::wandering(kOddRate, 4, 3);
  for (float& sample : frames) sample *= 1e37F;
  const TakeFigures figures = TestTake::analyse(frames, kOddRate, true)->at(120, 0);
  expectNoLoudness(figures);  // past what is kept of a block
  EXPECT_GT(figures.samplePeakDbfs.value_or(0), 700);
  EXPECT_TRUE(figures.correlation);
}

// What the sums of 50 ms hold in 32 bits.
TEST(OddTakesTest, LoudnessGoesUpToNumbersPastWhatAnythingRecords) {
  constexpr std::uint32_t kToneRate = 48000;
  const auto at = [](double power) {
    Frames frames;
    TestTake::addSine(frames, kToneRate, 4, 20 * power);
    return TestTake::analyse(frames, kToneRate, false)->at(120, 0);
  };
  EXPECT_NEAR(at(17).integratedLufs.value_or(0), 340, 0.1);
  EXPECT_NEAR(at(17).shortTermMaxLufs.value_or(0), 340, 0.1);
  expectNoLoudness(at(18));
  EXPECT_NEAR(at(18).samplePeakDbfs.value_or(0), 360, 0.1);
  EXPECT_TRUE(at(18).correlation);
}

TEST(OddTakesTest, AChannelFarUnderTheOtherCountsAsSilent) {
  const auto at = [](double level) {
    Frames frames = TestTake::wandering(kOddRate, 4, 1);
    const double factor = std::pow(10.0, level / 20);
    for (std::size_t i = 0; i < frames.size(); i += 2) {
      frames[i + 1] = static_cast<float>(factor * static_cast<double>(frames[i]));
    }
    return TestTake::analyse(frames, kOddRate, false)->at(120, 0);
  };
  EXPECT_NEAR(at(-129).correlation.value_or(0), 1, 1e-6);
  EXPECT_NEAR(at(-129).balanceDb.value_or(0), 129, 1e-4);
  EXPECT_FALSE(at(-131).correlation);
  EXPECT_FALSE(at(-131).balanceDb);
}

TEST(OddTakesTest, RatesOutsideHavePeaksButNoLoudness) {
  for (const std::uint32_t rate : {0U, 10U, 7999U, 4000000000U}) {
    SCOPED_TRACE(rate);
    const Frames frames = TestTake::wandering(kOddRate, 4, 4);
    const TakeFigures figures = TestTake::analyse(frames, rate, true)->at(120, 0);
    expectNoLoudness(figures);
    EXPECT_FALSE(figures.truePeakDbtp);
    EXPECT_TRUE(figures.samplePeakDbfs);
    EXPECT_TRUE(figures.correlation);
  }
}

// The second channel reads as -2, as everywhere in the program.
TEST(OddTakesTest, OneChannel) {
  std::vector<float> samples(2 * kOddRate, 0.25F);
  const WaveBytes file =
      WaveBytes().format(3, 1, kOddRate, 32).recorderBext().data(WaveBytes::samplesFloat(samples));
  const TakeFigures figures = analyse(file, false)->at(120, 0);
  EXPECT_EQ(figures.peakLeft, 0.25);
  EXPECT_EQ(figures.peakRight, 2.0);
  EXPECT_NEAR(figures.balanceDb.value_or(99), 20 * std::log10(0.125), 1e-6);
}

TEST(OddTakesTest, SamplesThatDoNotDecode) {
  const WaveBytes file =
      WaveBytes().format(1, 2, kOddRate, 8).recorderBext().data(std::vector<std::byte>(2000));
  const TakeFigures figures = analyse(file, true)->at(0, 0);
  EXPECT_EQ(figures.peakLeft, 2.0);
}

TEST(OddTakesTest, MoreChannelsThanTwo) {
  std::vector<std::int32_t> values(3000, 1 << 20);
  const WaveBytes file =
      WaveBytes().format(1, 3, kOddRate, 24).recorderBext().data(WaveBytes::samples24(values));
  const auto analysis = analyse(file, false);
  ASSERT_NE(analysis, nullptr);
  EXPECT_EQ(analysis->layout().frames(), 1000U);
  EXPECT_EQ(analysis->at(0, 0).peakLeft, 0.125);
}

TEST(OddTakesTest, FramesWithoutBytes) {
  const WaveBytes file =
      WaveBytes().format(1, 0, kOddRate, 24).recorderBext().data(std::vector<std::byte>(60));
  expectNothing(analyse(file, true)->at(120, 0));
}
