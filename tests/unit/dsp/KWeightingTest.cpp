// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/KWeighting.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

namespace {

double decibels(const Biquad& section, double frequency, double rate) {
  const auto z = std::polar(1.0, -2.0 * std::numbers::pi * frequency / rate);
  const auto above = section.b0 + section.b1 * z + section.b2 * z * z;
  const auto below = 1.0 + section.a1 * z + section.a2 * z * z;
  return 20.0 * std::log10(std::abs(above / below));
}

double weightingAt(double frequency, std::uint32_t rate) {
  const KWeighting weighting = KWeighting::forRate(rate);
  return decibels(weighting.shelf, frequency, rate) + decibels(weighting.highPass, frequency, rate);
}

constexpr std::uint32_t kRates[] = {8000,  11025, 16000,  22050,  32000,  44100,
                                    88200, 96000, 176400, 192000, 384000, 768000};

}  // namespace

TEST(KWeightingTest, IsThePublishedOneAt48000) {
  constexpr double kPublishedDigits = 1e-13;
  const auto [shelf, highPass] = KWeighting::forRate(48000);
  EXPECT_NEAR(shelf.b0, 1.53512485958697, kPublishedDigits);
  EXPECT_NEAR(shelf.b1, -2.69169618940638, kPublishedDigits);
  EXPECT_NEAR(shelf.b2, 1.19839281085285, kPublishedDigits);
  EXPECT_NEAR(shelf.a1, -1.69065929318241, kPublishedDigits);
  EXPECT_NEAR(shelf.a2, 0.73248077421585, kPublishedDigits);
  EXPECT_EQ(highPass.b0, 1.0);
  EXPECT_EQ(highPass.b1, -2.0);
  EXPECT_EQ(highPass.b2, 1.0);
  EXPECT_NEAR(highPass.a1, -1.99004745483398, kPublishedDigits);
  EXPECT_NEAR(highPass.a2, 0.99007225036621, kPublishedDigits);
}

TEST(KWeightingTest, CancelsTheConstantOfLoudnessAt997Hertz) {
  EXPECT_NEAR(weightingAt(997, 48000), 0.691, 0.005);
}

TEST(KWeightingTest, WeighsTheSameAtEveryRate) {
  for (const std::uint32_t rate : kRates) {
    const double tolerance = rate < 16000 ? 0.21 : 0.06;  // the upper half of the band is narrow
    for (const double frequency : {20.0, 38.0, 100.0, 400.0, 997.0}) {
      EXPECT_NEAR(weightingAt(frequency, rate), weightingAt(frequency, 48000), tolerance)
          << frequency << " Hz at " << rate;
    }
  }
  for (const std::uint32_t rate : {44100U, 96000U, 192000U, 768000U}) {
    EXPECT_NEAR(weightingAt(4000, rate), weightingAt(4000, 48000), 0.01) << rate;
    EXPECT_NEAR(weightingAt(12000, rate), weightingAt(12000, 48000), 0.02) << rate;
  }
}

TEST(KWeightingTest, ForgetsWithinATenthOfASecond) {
  for (const std::uint32_t rate : kRates) {
    const Biquad section = KWeighting::forRate(rate).highPass;
    const double radius = std::sqrt(section.a2);  // of both poles
    EXPECT_LT(std::pow(radius, rate / 10.0), 1e-10) << rate;
  }
}

TEST(KWeightingTest, IsDefinedFrom8To768Kilohertz) {
  EXPECT_FALSE(KWeighting::isDefined(0));
  EXPECT_FALSE(KWeighting::isDefined(7999));
  EXPECT_TRUE(KWeighting::isDefined(8000));
  EXPECT_TRUE(KWeighting::isDefined(768000));
  EXPECT_FALSE(KWeighting::isDefined(768001));
}
