// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/FilesOption.h"

#include <gtest/gtest.h>

namespace {

using Files = FilesOption::Files;
using namespace std::string_view_literals;

TEST(FilesOption, TakesALineForAName) {
  EXPECT_EQ(FilesOption::namesIn("a.wav\nb c.wav\n"), (Files{"a.wav", "b c.wav"}));
}

TEST(FilesOption, NeedsNoEndOfTheLastLine) {
  EXPECT_EQ(FilesOption::namesIn("a\nb"), (Files{"a", "b"}));
}

TEST(FilesOption, LeavesEmptyLinesOut) {
  EXPECT_EQ(FilesOption::namesIn("\n\na\n\nb\n\n"), (Files{"a", "b"}));
  EXPECT_EQ(FilesOption::namesIn(""), Files{});
  EXPECT_EQ(FilesOption::namesIn("\n"), Files{});
}

TEST(FilesOption, LetsNamesHaveLinesBetweenNulBytes) {
  EXPECT_EQ(FilesOption::namesIn("a\nb\0c\0"sv), (Files{"a\nb", "c"}));
  EXPECT_EQ(FilesOption::namesIn("a\0"sv), Files{"a"});
}

}  // namespace
