// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/NearestWord.h"

#include <gtest/gtest.h>

namespace {

const std::vector<std::string> kWords{"export", "info",   "levels", "measure",
                                      "play",   "device", "demo"};

TEST(NearestWordTest, FindsWhatWasMeant) {
  EXPECT_EQ(NearestWord::of("exprot", kWords), "export");
  EXPECT_EQ(NearestWord::of("expor", kWords), "export");
  EXPECT_EQ(NearestWord::of("messure", kWords), "measure");
  EXPECT_EQ(NearestWord::of("ifno", kWords), "info");
  EXPECT_EQ(NearestWord::of("level", kWords), "levels");
  EXPECT_EQ(NearestWord::of("plays", kWords), "play");
  EXPECT_EQ(NearestWord::of("devise", kWords), "device");
}

TEST(NearestWordTest, GuessesNothingWhereNothingIsNear) {
  EXPECT_EQ(NearestWord::of("explode", {"info", "play"}), std::nullopt);
  EXPECT_EQ(NearestWord::of("x", kWords), std::nullopt);
  EXPECT_EQ(NearestWord::of("", kWords), std::nullopt);
  EXPECT_EQ(NearestWord::of("a.wav", kWords), std::nullopt);
  EXPECT_EQ(NearestWord::of("export", {}), std::nullopt);
}

}  // namespace
