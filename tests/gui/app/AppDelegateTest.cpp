// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>

namespace {

using namespace std::chrono_literals;

TEST(AppDelegateTest, WithTheEndOfTheProgramTheTimeBeginsThatAllHave) {
  std::optional<EndPatience> end;
  AppDelegate delegate(*qApp, end);
  EXPECT_EQ(EndPatience::atMost(10min), 10min);
  delegate.applicationWillTerminate();
  EXPECT_LE(EndPatience::atMost(10min), EndPatience::kWhole);
}

TEST(AppDelegateTest, WhatEndsAfterItHasNoTimeOfItsOwn) {
  std::optional<EndPatience> end;
  {
    AppDelegate delegate(*qApp, end);
    delegate.applicationWillTerminate();
  }
  EXPECT_LE(EndPatience::atMost(10min), EndPatience::kWhole);
}

}  // namespace
