// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Printable.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Printable, LeavesTextAsItIs) {
  EXPECT_EQ("", printable(""));
  EXPECT_EQ("R0001.WAV ~", printable("R0001.WAV ~"));
  EXPECT_EQ("caf\u00E9 \u00A0 \u4E2D", printable("caf\u00E9 \u00A0 \u4E2D"));
}

TEST(Printable, ShowsControlCharacters) {
  EXPECT_EQ("\\r\\n", printable("\r\n"));
  EXPECT_EQ("\\x1b[2J\\x07\\x7f", printable("\x1b[2J\x07\x7f"));
  EXPECT_EQ("\\x9b31m", printable("\u009B31m"));
  EXPECT_EQ("a\\x00b", printable(std::string_view("a\0b", 3)));
}

TEST(Printable, ShowsEachSecondControlCharacterAndNoOther) {
  for (unsigned code = 0x80; code < 0xC0; ++code) {
    const std::string character{'\xC2', static_cast<char>(code)};
    EXPECT_EQ(code < 0xA0 ? fmt::format("\\x{:02x}", code) : character, printable(character));
  }
}

TEST(Printable, ShowsBytesThatAreNoUtf8) {
  EXPECT_EQ("\\x9b31m", printable("\x9B"
                                  "31m"));
  EXPECT_EQ("a\\xc2", printable("a\xC2"));
  EXPECT_EQ("\\xc2\\x1b[", printable("\xC2\x1B["));
  EXPECT_EQ("\\xe4\\xb8.wav", printable("\xE4\xB8.wav"));
  EXPECT_EQ("f\\xf6hn \u4E2D\U0001F399", printable("f\xF6hn \u4E2D\U0001F399"));
  EXPECT_EQ("\\xc1\\x81\\xed\\xa0\\x80", printable("\xC1\x81\xED\xA0\x80"));
}

}  // namespace
