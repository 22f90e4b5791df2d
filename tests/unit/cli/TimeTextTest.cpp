// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/TimeText.h"

#include <gtest/gtest.h>

namespace {

TEST(TimeTextTest, TakesSecondsMinutesAndHours) {
  EXPECT_EQ(TimeText::parse("0"), 0);
  EXPECT_EQ(TimeText::parse("12.5"), 12.5);
  EXPECT_EQ(TimeText::parse("90"), 90);
  EXPECT_EQ(TimeText::parse(".5"), 0.5);
  EXPECT_EQ(TimeText::parse("1e-05"), 1e-05);
  EXPECT_EQ(TimeText::parse("1:23.25"), 83.25);
  EXPECT_EQ(TimeText::parse("0:00:00.001"), 0.001);
  EXPECT_EQ(TimeText::parse("1:02:03"), 3723);
  EXPECT_EQ(TimeText::parse("100:00:00"), 360000);
}

TEST(TimeTextTest, TakesNothingElse) {
  for (const char* text : {"",   ":",  "1:",   ":1",     "1:60", "1:60:00",     "1:2:3:4",
                           "-1", "+1", "1:-2", "1.5:00", "nan",  "inf",         "0x10",
                           " 1", "1 ", "1,5",  "soon",   "1e99", "99999999999", "1.2.3"}) {
    EXPECT_EQ(TimeText::parse(text), std::nullopt) << text;
  }
}

TEST(TimeTextTest, ShowsMilliseconds) {
  EXPECT_EQ(TimeText::of(0), "00:00:00.000");
  EXPECT_EQ(TimeText::of(59.9996), "00:01:00.000");
  EXPECT_EQ(TimeText::of(3723.25), "01:02:03.250");
  EXPECT_EQ(TimeText::of(360000), "100:00:00.000");
}

TEST(TimeTextTest, TheCheckMakesSecondsOfATime) {
  const CLI::Validator check = TimeText::check();
  std::string text = "1:02:03.125";
  EXPECT_EQ(check(text), "");
  EXPECT_EQ(text, "3723.125");
  text = "soon";
  EXPECT_EQ(check(text), "soon is neither seconds nor H:MM:SS");
}

}  // namespace
