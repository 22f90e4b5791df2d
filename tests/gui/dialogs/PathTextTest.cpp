// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/PathText.h"

#include <gtest/gtest.h>

#include "support/EnvironmentVariable.h"

namespace {

TEST(PathText, IsMeantWithinTheFolder) {
  const EnvironmentVariable home("HOME", "/home/somebody");
  const std::pair<const char*, const char*> cases[] = {
      {"take", "/t/in/take"},  {"deep/take", "/t/in/deep/take"},  {"/other/take", "/other/take"},
      {"../take", "/t/take"},  {"./take", "/t/in/take"},          {"..", "/t/"},
      {"~", "/home/somebody"}, {"~/take", "/home/somebody/take"}, {"~take", "/t/in/~take"},
      {"ä 録", "/t/in/ä 録"}};
  for (const auto& [typed, wanted] : cases) {
    EXPECT_EQ(wanted, PathText::within("/t/in", typed).string()) << typed;
  }
}

}  // namespace
