// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/NumberCheck.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string verdict(std::string text) {
  return realBetween(-36, 36)(text);
}

TEST(NumberCheckTest, AcceptsNumbersOfTheRange) {
  for (const char* text : {"0", "-36", "36", "-0.5", "+3", "3.25", "1e1", ".5", "36.0"}) {
    EXPECT_EQ(verdict(text), "") << text;
  }
}

TEST(NumberCheckTest, RejectsNumbersOutOfTheRange) {
  EXPECT_EQ(verdict("36.0001"), "36.0001 is not a number from -36 to 36");
  for (const char* text : {"-36.001", "37", "1e9", "-1e300", "1e400"}) {
    EXPECT_NE(verdict(text), "") << text;
  }
}

TEST(NumberCheckTest, RejectsWhatIsNoNumber) {
  for (const char* text : {"", "x", "1x", "nan", "NaN", "-nan", "inf", "-inf", "1,5", "1 2"}) {
    EXPECT_NE(verdict(text), "") << text;
  }
}

}  // namespace
