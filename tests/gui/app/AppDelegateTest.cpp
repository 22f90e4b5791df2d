// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include <gtest/gtest.h>

#include <chrono>

namespace {

using namespace std::chrono_literals;

TEST(AppDelegateTest, WithTheEndOfTheProgramTheTimeBeginsThatAllHave) {
  {
    AppDelegate delegate(*qApp);
    EXPECT_EQ(EndPatience::atMost(10min), 10min);
    delegate.applicationWillTerminate();
    EXPECT_LE(EndPatience::atMost(10min), EndPatience::kWhole);
  }
  EXPECT_EQ(EndPatience::atMost(10min), 10min);
}

}  // namespace
