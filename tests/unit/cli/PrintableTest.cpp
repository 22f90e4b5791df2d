// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Printable.h"

#include <gtest/gtest.h>

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

TEST(Printable, KeepsABrokenEndOfUtf8) {
  EXPECT_EQ("a\xC2", printable("a\xC2"));
}

}  // namespace
