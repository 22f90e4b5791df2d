// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/AngleList.h"

#include <gtest/gtest.h>

TEST(AngleListTest, ReadsWidthsInTheirOrder) {
  EXPECT_EQ(AngleList::parse("120"), std::vector{120});
  EXPECT_EQ(AngleList::parse("150,0,7,7"), (std::vector{150, 0, 7, 7}));
}

TEST(AngleListTest, AllIsEveryWholeDegree) {
  const std::vector<int> all = AngleList::parse("all");
  ASSERT_EQ(all.size(), 151U);
  EXPECT_EQ(all.front(), 0);
  EXPECT_EQ(all.back(), 150);
}

TEST(AngleListTest, RefusesWhatIsNoListOfWidths) {
  for (const char* text : {"", ",", "1,", ",1", "1,,2", "151", "-1", "1.5", "all,1", "ALL", "1 ,2",
                           "99999999999999999999", "0x10"}) {
    EXPECT_TRUE(AngleList::parse(text).empty()) << text;
    std::string checked = text;
    EXPECT_NE(AngleList::check()(checked), "") << text;
  }
  std::string good = "1,2";
  EXPECT_EQ(AngleList::check()(good), "");
}
