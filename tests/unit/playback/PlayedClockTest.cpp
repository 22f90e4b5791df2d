// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/PlayedClock.h"

#include <gtest/gtest.h>

namespace {

TEST(PlayedClock, StandsWhereItWasTold) {
  PlayedClock clock(48000);
  EXPECT_EQ(clock.heard(), 0.0);
  clock.setHandedOver(1000);
  clock.standing(400);
  EXPECT_EQ(clock.heard(), 400.0);
  EXPECT_EQ(clock.heard(), 400.0);
}

TEST(PlayedClock, NeverPassesWhatWasHandedOver) {
  PlayedClock clock(48000);
  clock.setHandedOver(1000);
  clock.moving(5000);
  EXPECT_EQ(clock.heard(), 1000.0);
}

TEST(PlayedClock, MovesOnByItself) {
  PlayedClock clock(1e6);
  clock.setHandedOver(1'000'000'000);
  clock.moving(100);
  const double first = clock.heard();
  EXPECT_GE(first, 100.0);
  while (clock.heard() == first) continue;
  EXPECT_GT(clock.heard(), first);
}

TEST(PlayedClock, NeverGoesBack) {
  PlayedClock clock(48000);
  clock.setHandedOver(1000);
  clock.standing(800);
  EXPECT_EQ(clock.heard(), 800.0);
  clock.moving(-100000);
  EXPECT_EQ(clock.heard(), 800.0);
  clock.standing(10);
  EXPECT_EQ(clock.heard(), 800.0);
}

TEST(PlayedClock, BeginsAgainAfterARewind) {
  PlayedClock clock(48000);
  clock.setHandedOver(1000);
  clock.standing(800);
  EXPECT_EQ(clock.heard(), 800.0);
  clock.reset();
  clock.rewind();
  EXPECT_EQ(clock.heard(), 0.0);
  EXPECT_EQ(clock.handedOver(), 0U);
}

}  // namespace
