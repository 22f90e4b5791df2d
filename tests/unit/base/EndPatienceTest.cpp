// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/EndPatience.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

TEST(EndPatienceTest, BeforeTheEndEachHasItsOwn) {
  EXPECT_EQ(EndPatience::atMost(300ms), 300ms);
  EXPECT_EQ(EndPatience::atMost(10min), 10min);
  { const EndPatience end; }
  EXPECT_EQ(EndPatience::atMost(10min), 10min);
}

TEST(EndPatienceTest, AllThatHangTogetherHaveOne) {
  auto now = 5s + 0ms;
  const EndPatience end([&now] { return now; });
  const auto began = now;
  for (const auto own : {600ms, 300ms, 300ms, 300ms, 300ms}) now += EndPatience::atMost(own);
  EXPECT_EQ(now - began, EndPatience::kWhole);
  EXPECT_EQ(EndPatience::atMost(300ms), 0ms);
}

TEST(EndPatienceTest, WhatTakesNoTimeTakesNothingFromTheOthers) {
  auto now = 5s + 0ms;
  const EndPatience end([&now] { return now; });
  for (const auto own : {600ms, 300ms, 300ms}) EXPECT_EQ(EndPatience::atMost(own), own);
  now += 10s;
  EXPECT_EQ(EndPatience::atMost(300ms), 0ms) << "never less";
}

TEST(SteadyTimeTest, GoesForward) {
  const auto before = SteadyTime::now();
  EXPECT_TRUE(before > 0ms);
  EXPECT_GE(SteadyTime::now(), before);
}

}  // namespace
