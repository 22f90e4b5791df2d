// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "wav/WaveFileReader.h"

namespace {

constexpr int kBits[] = {16, 24, 32, 0, -1};  // none of the operations looks at them

float gainFactor(double dB) {
  return static_cast<float>(std::pow(10.0, dB / 20.0));
}

}  // namespace

TEST(SignalOperationsTest, OneFrameIsDecodedInPlace) {
  for (const int bits : kBits) {
    std::array<float, 4> samples{0.5F, 0.25F, 0.5F, 0.25F};
    WaveFileReader::COM_SetCvtMSSample(bits, samples.data(), 120);
    EXPECT_EQ(samples, (std::array{0.75F, 0.25F, 0.5F, 0.25F}));
  }
}

TEST(SignalOperationsTest, OneFrameAtOtherAngles) {
  std::array<float, 2> mono{0.5F, 0.25F};
  WaveFileReader::COM_SetCvtMSSample(24, mono.data(), 0);
  EXPECT_EQ(mono, (std::array{0.5F, 0.5F}));
  std::array<float, 2> wide{0.6F, 0.5F};
  WaveFileReader::COM_SetCvtMSSample(24, wide.data(), 150);
  EXPECT_FLOAT_EQ(wide[0], 0.6F + 0.5F * gainFactor(6.0));
  EXPECT_FLOAT_EQ(wide[1], 0.6F - 0.5F * gainFactor(6.0));
}

TEST(SignalOperationsTest, DecodeCountsFloats) {
  for (const int bits : kBits) {
    std::array<float, 6> samples{0.5F, 0.25F, 0.5F, 0.25F, 0.5F, 0.25F};
    WaveFileReader::COM_MSDecode(bits, samples.data(), 4, 120);
    EXPECT_EQ(samples, (std::array{0.75F, 0.25F, 0.75F, 0.25F, 0.5F, 0.25F}));
  }
}

TEST(SignalOperationsTest, AnOddCountTakesInTheWholeLastFrame) {
  std::array<float, 6> decoded{0.5F, 0.25F, 0.5F, 0.25F, 0.5F, 0.25F};
  WaveFileReader::COM_MSDecode(24, decoded.data(), 3, 120);
  EXPECT_EQ(decoded, (std::array{0.75F, 0.25F, 0.75F, 0.25F, 0.5F, 0.25F}));
  std::array<float, 6> gained{1.0F, 1.0F, 1.0F, 1.0F, 1.0F, 1.0F};
  WaveFileReader::COM_AdjustdB(24, gained.data(), 3, 20.0, 40.0);
  EXPECT_EQ(gained, (std::array{0.1F, 0.01F, 0.1F, 0.01F, 1.0F, 1.0F}));
}

TEST(SignalOperationsTest, ACountOfZeroTouchesNothing) {
  std::array<float, 2> frame{0.5F, 0.25F};
  WaveFileReader::COM_MSDecode(24, frame.data(), 0, 120);
  WaveFileReader::COM_AdjustdB(24, frame.data(), 0, 20.0, 20.0);
  const AdjustAngleInfo angle{.curAngle = 120, .prevAngle = 120};
  WaveFileReader::COM_MSDecodeForPlaying(24, frame.data(), 0, &angle);
  const AdjustDBInfo gain{.curGain = 20, .prevGain = 20};
  WaveFileReader::COM_AdjustdBForPlaying(24, frame.data(), 0, &gain);
  EXPECT_EQ(frame, (std::array{0.5F, 0.25F}));
}

TEST(SignalOperationsTest, DecodeForPlayingCountsFrames) {
  const AdjustAngleInfo info{.curAngle = 120, .prevAngle = 119};
  for (const int bits : kBits) {
    std::array<float, 6> samples{0.5F, 0.25F, 0.5F, 0.25F, 0.5F, 0.25F};
    WaveFileReader::COM_MSDecodeForPlaying(bits, samples.data(), 2, &info);
    EXPECT_EQ(samples, (std::array{0.75F, 0.25F, 0.75F, 0.25F, 0.5F, 0.25F}));
  }
}

TEST(SignalOperationsTest, DecodeForPlayingGlides) {
  const AdjustAngleInfo info{.curAngle = 103, .prevAngle = 100};
  std::array<float, 10> samples{0, 1, 0, 1, 0, 1, 0, 1, 0, 1};
  WaveFileReader::COM_MSDecodeForPlaying(24, samples.data(), 5, &info);
  constexpr double kAngles[] = {101, 102, 103, 103, 103};
  for (std::size_t n = 0; n < 5; ++n) {
    EXPECT_FLOAT_EQ(samples[2 * n], gainFactor((kAngles[n] - 120) * 0.2)) << n;
  }
}

TEST(SignalOperationsTest, OneSampleIsDividedUnlessByZero) {
  for (const int bits : kBits) {
    EXPECT_EQ(WaveFileReader::COM_SetCvtdBSample(bits, 0.5F, 2.0F), 0.25F);
    EXPECT_EQ(WaveFileReader::COM_SetCvtdBSample(bits, -0.5F, 0.25F), -2.0F);
    EXPECT_EQ(WaveFileReader::COM_SetCvtdBSample(bits, 0.5F, 0.0F), 0.5F);
    EXPECT_EQ(WaveFileReader::COM_SetCvtdBSample(bits, 0.5F, -0.0F), 0.5F);
  }
}

TEST(SignalOperationsTest, AdjustCountsFloatsAndTellsTheChannelsApart) {
  for (const int bits : kBits) {
    std::array<float, 6> samples{0.5F, 0.5F, 0.5F, 0.5F, 0.5F, 0.5F};
    WaveFileReader::COM_AdjustdB(bits, samples.data(), 4, 6.0206, 0.0);
    EXPECT_NEAR(samples[0], 0.25, 1e-6);
    EXPECT_NEAR(samples[2], 0.25, 1e-6);
    EXPECT_EQ(samples[1], 0.5F);
    EXPECT_EQ(samples[3], 0.5F);
    EXPECT_EQ(samples[4], 0.5F);
  }
}

TEST(SignalOperationsTest, AdjustByMinusInfinityLeavesTheSamples) {
  constexpr double kMinusInfinity = -std::numeric_limits<double>::infinity();
  std::array<float, 2> frame{0.5F, 0.25F};
  WaveFileReader::COM_AdjustdB(24, frame.data(), 2, kMinusInfinity, kMinusInfinity);
  EXPECT_EQ(frame, (std::array{0.5F, 0.25F}));
}

TEST(SignalOperationsTest, AdjustForPlayingCountsFrames) {
  const AdjustDBInfo info{.curGain = 20, .prevGain = 0};
  for (const int bits : kBits) {
    std::array<float, 6> samples{1.0F, 1.0F, 1.0F, 1.0F, 1.0F, 1.0F};
    WaveFileReader::COM_AdjustdBForPlaying(bits, samples.data(), 2, &info);
    EXPECT_EQ(samples[0], 1.0F);
    EXPECT_EQ(samples[2], 1.0F / 5.5F);  // halfway from 1 to 10
    EXPECT_EQ(samples[3], 1.0F / 5.5F);
    EXPECT_EQ(samples[4], 1.0F);
  }
}

TEST(SignalOperationsTest, WholeAnglesAreCutTowardZeroAndKeptInTheTable) {
  EXPECT_EQ(WaveFileReader::wholeAngle(0.0), 0);
  EXPECT_EQ(WaveFileReader::wholeAngle(0.999), 0);
  EXPECT_EQ(WaveFileReader::wholeAngle(119.999), 119);
  EXPECT_EQ(WaveFileReader::wholeAngle(150.0), 150);
  EXPECT_EQ(WaveFileReader::wholeAngle(150.5), 150);
  EXPECT_EQ(WaveFileReader::wholeAngle(1e300), 150);
  EXPECT_EQ(WaveFileReader::wholeAngle(-0.5), 0);
  EXPECT_EQ(WaveFileReader::wholeAngle(-1e300), 0);
  EXPECT_EQ(WaveFileReader::wholeAngle(std::numeric_limits<double>::quiet_NaN()), 0);
}
