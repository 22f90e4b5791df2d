// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/FileAddress.h"

#include <gmock/gmock.h>

namespace {

TEST(FileAddress, NamesKeepTheirBytes) {
  for (const char* const path : {"/home/a/R0001.WAV", "/a b/100%/#1?.WAV", "/münchen.WAV",
                                 "/bad\xFF\xFEname.WAV", "/line\nbreak"}) {
    EXPECT_EQ(FileAddress::pathOf(FileAddress::of(path)), path);
  }
  EXPECT_EQ(FileAddress::of("/a b.WAV"), "file:///a%20b.WAV");
}

TEST(FileAddress, WhatIsElsewhereIsNoFileOfThisMachine) {
  for (const char* const address :
       {"", "R0001.WAV", "/R0001.WAV", "http://a.example/R0001.WAV", "smb://nas/R0001.WAV",
        "file://other.example/R0001.WAV", "file:R0001.WAV", "file:///%zz"}) {
    EXPECT_EQ(FileAddress::pathOf(QString::fromUtf8(address)), std::nullopt) << address;
  }
}

TEST(FileAddress, ThisMachineMayBeNamed) {
  EXPECT_EQ(FileAddress::pathOf("file://localhost/R0001.WAV"), "/R0001.WAV");
  EXPECT_EQ(FileAddress::pathOf("file:/R0001.WAV"), "/R0001.WAV");
}

}  // namespace
