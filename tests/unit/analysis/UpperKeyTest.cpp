// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/UpperKey.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr float kGreatest = std::numeric_limits<float>::infinity();

}  // namespace

TEST(UpperKeyTest, NeverReadsLowAndHardlyHigh) {
  std::mt19937 random(7);
  for (int i = 0; i < 100000; ++i) {
    const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (std::isnan(value)) continue;
    const float read = UpperKey::value(UpperKey::of(value));
    ASSERT_GE(read, value);
    if (std::fabs(value) > 1e-37F && std::fabs(value) < 1e38F) {
      ASSERT_LE(read - value, std::fabs(value) / 127) << value;
    }
  }
}

TEST(UpperKeyTest, KeysHaveTheOrderOfTheNumbers) {
  std::mt19937 random(8);
  for (int i = 0; i < 100000; ++i) {
    const auto a = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    const auto b = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
    if (!(a <= b)) continue;
    ASSERT_LE(UpperKey::of(a), UpperKey::of(b)) << a << ' ' << b;
  }
}

TEST(UpperKeyTest, EndsOfTheScale) {
  EXPECT_EQ(UpperKey::value(UpperKey::of(kGreatest)), kGreatest);
  EXPECT_EQ(UpperKey::value(UpperKey::of(0.0F)), 0.0F);
  EXPECT_EQ(UpperKey::value(UpperKey::of(-0.0F)), 0.0F);
  EXPECT_EQ(UpperKey::value(UpperKey::of(1.0F)), 1.0F);
  EXPECT_EQ(UpperKey::value(UpperKey::of(std::numeric_limits<float>::max())), kGreatest);
  EXPECT_EQ(UpperKey::value(UpperKey::of(-kGreatest)), -std::numeric_limits<float>::max());
  EXPECT_EQ(UpperKey::value(UpperKey::kNothing), -kGreatest);
  EXPECT_LT(UpperKey::kNothing, UpperKey::of(-kGreatest));
}
