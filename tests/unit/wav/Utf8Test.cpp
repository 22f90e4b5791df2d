// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/Utf8.h"

#include <gtest/gtest.h>

#include <string_view>

namespace {

std::span<const std::uint8_t> charactersOf(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

TEST(Utf8Test, KnowsWhatIsWellFormed) {
  for (const std::string_view text :
       {"", "abc", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
        "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "a\xC3\xA4z"}) {
    EXPECT_TRUE(Utf8::isValid(charactersOf(text))) << text;
  }
}

TEST(Utf8Test, KnowsWhatIsNot) {
  for (const std::string_view text :
       {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3z", "\xE0\x9F\xBF", "\xED\xA0\x80",
        "\xE2\x82", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "a\xE4"}) {
    EXPECT_FALSE(Utf8::isValid(charactersOf(text))) << text;
  }
}

TEST(Utf8Test, LeavesTextAsItIsAndTakesTheRestForLatin1) {
  using std::string_view_literals::operator""sv;
  EXPECT_EQ(Utf8::textOf(charactersOf("F\xC3\xB6hn\0\xFF"sv)), "F\xC3\xB6hn");
  EXPECT_EQ(Utf8::textOf(charactersOf("F\xF6hn\0"sv)), "F\xC3\xB6hn");
  EXPECT_EQ(Utf8::textOf(charactersOf("\0abc"sv)), "");
  EXPECT_EQ(Utf8::textOf({}), "");
}

}  // namespace
