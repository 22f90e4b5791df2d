// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/SettingsText.h"

#include <gtest/gtest.h>

namespace {

const std::string kStart = "mixdeck-settings 1\n";

TEST(SettingsText, ReadsWhatItWrote) {
  const SettingsText::Values values{{"UD_LAST_OPEN_FOLDER", "/home/a b/=\\ \n\r\xff"},
                                    {std::string("k\0=", 3), ""}};
  EXPECT_EQ(SettingsText::read(SettingsText::write(values)), values);
  EXPECT_EQ(SettingsText::read(SettingsText::write({})), SettingsText::Values());
}

TEST(SettingsText, IsOneLineAKey) {
  EXPECT_EQ(SettingsText::write({{"a", "1"}, {"b", "2=\n"}}), kStart + "a=1\nb=2\\e\\n\n");
}

TEST(SettingsText, RefusesWhatIsNotWhole) {
  for (const std::string& text :
       {std::string(), std::string("mixdeck-settings 1"), std::string("other 1\na=1\n"),
        kStart + "a=1", kStart + "a\n", kStart + "\n", kStart + "a=1=2\n", kStart + "a=\\x\n",
        kStart + "a=\\\n", kStart + "a=1\r\n", kStart + std::string("a=\0\n", 4),
        kStart + "a=1\na=2\n"}) {
    EXPECT_EQ(SettingsText::read(text), std::nullopt) << testing::PrintToString(text);
  }
}

}  // namespace
