// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/SideGain.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

double wantedDB(int angle) {
  return angle <= 15 ? -48.0 + (angle - 1) * 27.0 / 14.0 : (angle - 120) * 0.2;
}

}  // namespace

TEST(SideGainTest, EveryFactorIsTheFormulaRoundedToFloat) {
  for (int angle = 1; angle <= 150; ++angle) {
    const auto wanted = static_cast<float>(std::pow(10.0, wantedDB(angle) / 20.0));
    const float oneUnit = std::nextafter(wanted, 2.0F) - wanted;
    EXPECT_NEAR(SideGain::factor(angle), wanted, static_cast<double>(oneUnit)) << angle;
  }
}

TEST(SideGainTest, TellingRows) {
  EXPECT_EQ(SideGain::factor(0), 0.0F);
  EXPECT_FLOAT_EQ(SideGain::factor(1), 0.003981072F);
  EXPECT_FLOAT_EQ(SideGain::factor(2), 0.004970826F);
  EXPECT_FLOAT_EQ(SideGain::factor(15), 0.08912510F);
  EXPECT_FLOAT_EQ(SideGain::factor(16), 0.09120108F);
  EXPECT_FLOAT_EQ(SideGain::factor(20), 0.1F);
  EXPECT_FLOAT_EQ(SideGain::factor(70), 0.3162278F);
  EXPECT_EQ(SideGain::factor(120), 1.0F);
  EXPECT_FLOAT_EQ(SideGain::factor(150), 1.9952623F);
}

TEST(SideGainTest, GrowsWithTheAngle) {
  for (int angle = 1; angle <= 150; ++angle) {
    EXPECT_GT(SideGain::factor(angle), SideGain::factor(angle - 1)) << angle;
  }
}

TEST(SideGainTest, AnglesOutsideTheTableAreClampedToIt) {
  EXPECT_EQ(SideGain::factor(-1), 0.0F);
  EXPECT_EQ(SideGain::factor(std::numeric_limits<std::int64_t>::min()), 0.0F);
  EXPECT_EQ(SideGain::factor(151), SideGain::factor(150));
  EXPECT_EQ(SideGain::factor(std::numeric_limits<std::int64_t>::max()), SideGain::factor(150));
}
