// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/Oversampling.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <numeric>

namespace {

using Response = std::complex<double>;

// What a phase makes of a turning phasor whose angle at the sample is 0.
Response response(const Oversampling::Phase& taps, double cycles) {
  Response sum = 0;
  for (std::size_t j = 0; j < taps.size(); ++j) {
    const double at = static_cast<double>(j) - static_cast<double>(Oversampling::kBefore);
    sum += static_cast<double>(taps[j]) * std::polar(1.0, 2.0 * std::numbers::pi * cycles * at);
  }
  return sum;
}

// The published interpolating filter, an eighth of a sample on and three; its other two phases are
// these backwards.
constexpr std::array<Oversampling::Phase, 2> kPublished = {{
    {0.0017089843750F, 0.0109863281250F, -0.0196533203125F, 0.0332031250000F, -0.0594482421875F,
     0.1373291015625F, 0.9721679687500F, -0.1022949218750F, 0.0476074218750F, -0.0266113281250F,
     0.0148925781250F, -0.0083007812500F},
    {-0.0291748046875F, 0.0292968750000F, -0.0517578125000F, 0.0891113281250F, -0.1665039062500F,
     0.4650878906250F, 0.7797851562500F, -0.2003173828125F, 0.1015625000000F, -0.0582275390625F,
     0.0330810546875F, -0.0189208984375F},
}};

// How far from 0 dB it is where sound is.
double unevenness(const Oversampling::Phase& taps) {
  double most = 0;
  for (double cycles = 0; cycles <= 0.35; cycles += 0.01) {
    most = std::max(most, std::fabs(20.0 * std::log10(std::abs(response(taps, cycles)))));
  }
  return most;
}

}  // namespace

TEST(OversamplingTest, FollowsTheRulesOfTheStandard) {
  EXPECT_EQ(Oversampling::factor(8000), 4U);
  EXPECT_EQ(Oversampling::factor(48000), 4U);
  EXPECT_EQ(Oversampling::factor(95999), 4U);
  EXPECT_EQ(Oversampling::factor(96000), 2U);
  EXPECT_EQ(Oversampling::factor(191999), 2U);
  EXPECT_EQ(Oversampling::factor(192000), 1U);
  EXPECT_EQ(Oversampling::phases(4).size(), 3U);
  EXPECT_EQ(Oversampling::phases(2).size(), 1U);
  EXPECT_TRUE(Oversampling::phases(1).empty());
}

TEST(OversamplingTest, IsFlatAndInPlaceWhereSoundIs) {
  const auto phases = Oversampling::phases(4);
  for (double cycles = 0; cycles <= 0.35; cycles += 0.01) {
    for (std::size_t p = 0; p < phases.size(); ++p) {
      const double position = 0.25 * static_cast<double>(p + 1);
      const Response wanted = std::polar(1.0, 2.0 * std::numbers::pi * cycles * position);
      EXPECT_LT(std::abs(response(phases[p], cycles) - wanted), 0.013) << cycles << ' ' << p;
    }
  }
}

TEST(OversamplingTest, TwiceIsTheMiddleOfFourTimes) {
  EXPECT_EQ(Oversampling::phases(2)[0], Oversampling::phases(4)[1]);
}

TEST(OversamplingTest, IsNoLessEvenThanThePublishedFilter) {
  const auto phases = Oversampling::phases(4);
  EXPECT_LT(unevenness(phases[0]), 0.06);
  EXPECT_LT(unevenness(phases[1]), 0.11);
  const double published = std::max(unevenness(kPublished[0]), unevenness(kPublished[1]));
  for (const Oversampling::Phase& phase : phases) EXPECT_LT(unevenness(phase), published);
}

TEST(OversamplingTest, TheGreatestGainIsReachedAndNeverPassed) {
  float most = 0;
  for (const auto& taps : Oversampling::phases(4)) {
    float worst = 0;  // the samples that add up most
    for (const float tap : taps) worst += tap * std::copysign(1.0F, tap);
    most = std::max(most, worst);
  }
  EXPECT_FLOAT_EQ(Oversampling::greatestGain(), most);
  EXPECT_NEAR(static_cast<double>(most), 1.864, 0.001);
}
