// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/SpeedText.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

TEST(SpeedTextTest, TellsSpeedAndTimeLeftOnceThereIsSomethingToTell) {
  SpeedText::Clock::time_point now{};
  const SpeedText speed([&now] { return now; });
  EXPECT_EQ(speed.text(1'000'000, 2'000'000), "");
  now += 999ms;
  EXPECT_EQ(speed.text(1'000'000, 2'000'000), "");
  now += 1ms;
  EXPECT_EQ(speed.text(0, 2'000'000), "");
  EXPECT_EQ(speed.text(1'000'000, 3'500'000), "1.0 MB/s, 00:00:02 left");
  now += 9s;
  EXPECT_EQ(speed.text(842'000'000, 842'000'000), "84.2 MB/s, 00:00:00 left");
  EXPECT_EQ(speed.text(20'000'000, 10'000'000), "2.0 MB/s, 00:00:00 left") << "more than foreseen";
  EXPECT_EQ(speed.text(10'000'000, 3'673'000'000), "1.0 MB/s, 01:01:03 left");
}

}  // namespace
