// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Emphasis.h"

#include <gtest/gtest.h>

TEST(Emphasis, LeavesTheTextWhereNoColoursAreWanted) {
  EXPECT_EQ(Emphasis::of("Warning:", Emphasis::Kind::Warning, false), "Warning:");
}

TEST(Emphasis, HasAColourForEachKindAndEndsIt) {
  EXPECT_EQ(Emphasis::of("a", Emphasis::Kind::Failure, true), "\x1b[1;31ma\x1b[0m");
  EXPECT_EQ(Emphasis::of("a", Emphasis::Kind::Warning, true), "\x1b[1;33ma\x1b[0m");
}

TEST(Emphasis, IsForTerminalsWithColoursAlone) {
  EXPECT_TRUE(Emphasis::isWanted(true, nullptr, "xterm"));
  EXPECT_FALSE(Emphasis::isWanted(false, nullptr, "xterm"));
  EXPECT_FALSE(Emphasis::isWanted(true, nullptr, "dumb"));
  EXPECT_FALSE(Emphasis::isWanted(true, nullptr, ""));
  EXPECT_FALSE(Emphasis::isWanted(true, nullptr, nullptr));
}

TEST(Emphasis, HeedsNoColorWhateverItSaysUnlessItSaysNothing) {
  EXPECT_FALSE(Emphasis::isWanted(true, "1", "xterm"));
  EXPECT_FALSE(Emphasis::isWanted(true, "0", "xterm"));
  EXPECT_TRUE(Emphasis::isWanted(true, "", "xterm"));
}
