// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/FileAddress.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <string>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(FileAddressTest, KeepsEveryByteOfAPath) {
  EXPECT_EQ("file:///takes/R0001.WAV", FileAddress::of("/takes/R0001.WAV"));
  EXPECT_EQ("file:///a%20b/100%25%23.WAV", FileAddress::of("/a b/100%#.WAV"));
  EXPECT_EQ("file:///%C3%A9%FF", FileAddress::of("/\xC3\xA9\xFF"));
  std::string all = "/";
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_THAT(FileAddress::pathsIn(FileAddress::of(all)), ElementsAre(all));
}

TEST(FileAddressTest, AListHasALineAFile) {
  const std::vector<std::filesystem::path> files = {"/a b", "/c\r\nd"};
  EXPECT_EQ("file:///a%20b\r\nfile:///c%0D%0Ad\r\n", FileAddress::listOf(files));
  EXPECT_EQ(files, FileAddress::pathsIn(FileAddress::listOf(files)));
}

TEST(FileAddressTest, OnlyFilesAreRead) {
  EXPECT_THAT(FileAddress::pathsIn("# a comment\r\nhttps://mixdeck.example/a\nfile:///b\n/c\n"),
              ElementsAre("/b"));
  EXPECT_THAT(FileAddress::pathsIn("file://"), IsEmpty());
  EXPECT_THAT(FileAddress::pathsIn(""), IsEmpty());
}

TEST(FileAddressTest, OnlyFilesOfThisMachineAreRead) {
  std::array<char, HOST_NAME_MAX + 1> own{};
  ASSERT_EQ(gethostname(own.data(), own.size()), 0);
  const std::string name = own.data();
  EXPECT_THAT(FileAddress::pathsIn("file://localhost/b%20c"), ElementsAre("/b c"));
  EXPECT_THAT(FileAddress::pathsIn("file://" + name + "/b"), ElementsAre("/b"));
  EXPECT_THAT(FileAddress::pathsIn("file://not-" + name + "/b\nfile://nas/c"), IsEmpty());
}

TEST(FileAddressTest, WhatIsNoCodeStandsForItself) {
  EXPECT_THAT(FileAddress::pathsIn("file:///100%\nfile:///%zz\nfile:///%4"),
              ElementsAre("/100%", "/%zz", "/%4"));
}

}  // namespace
