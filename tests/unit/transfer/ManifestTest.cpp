// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/Manifest.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr const char* kHash = "0123456789abcdef0123456789abcdef";

Manifest manifest() {
  Manifest made;
  made.createdAt = "2026-11-22T04:56:00+00:00";
  made.host = "field & \"studio\"";
  made.toolVersion = "1.2.3";
  made.entries.push_back({"R0001.WAV", 5'000'000'000, "2026-11-21T10:00:00+00:00", kHash,
                          "original", "2026-11-22T04:57:00+00:00"});
  made.entries.push_back(
      {"day <2>/R0002 & more.WAV", 0, "", kHash, "verified", "2026-11-22T04:58:00+00:00"});
  return made;
}

std::string whyNot(const std::string& document) {
  std::string reason;
  EXPECT_FALSE(Manifest::fromXml(document, reason).has_value()) << document;
  return reason;
}

TEST(ManifestTest, ReadsAsItWasWritten) {
  std::string reason;
  const auto read = Manifest::fromXml(manifest().toXml(), reason);
  ASSERT_TRUE(read) << reason;
  EXPECT_EQ(read->createdAt, manifest().createdAt);
  EXPECT_EQ(read->host, manifest().host);
  ASSERT_EQ(read->entries.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    const Manifest::Entry wanted = manifest().entries[i];
    EXPECT_EQ(read->entries[i].path, wanted.path);
    EXPECT_EQ(read->entries[i].size, wanted.size);
    EXPECT_EQ(read->entries[i].modified, wanted.modified);
    EXPECT_EQ(read->entries[i].hash, wanted.hash);
    EXPECT_EQ(read->entries[i].action, wanted.action);
    EXPECT_EQ(read->entries[i].hashedAt, wanted.hashedAt);
  }
}

TEST(ManifestTest, OneOfOtherProgramsMayHaveMoreAndLess) {
  std::string reason;
  const auto read = Manifest::fromXml(
      "<hashlist xmlns='urn:ASC:MHL:v2.0' version='2.0'><creatorinfo/><processinfo><roothash>"
      "<content><xxh128>ff</xxh128></content></roothash></processinfo><hashes>"
      "<directoryhash><path>day</path><content><xxh128>aa</xxh128></content></directoryhash>"
      "<hash><path>a.wav</path><md5>00</md5></hash>"
      "<hash><path size='7'>b.wav</path><md5>00</md5><xxh128>ABCDEF</xxh128></hash>"
      "</hashes><metadata><hash><path>no.wav</path></hash></metadata></hashlist>",
      reason);
  ASSERT_TRUE(read) << reason;
  ASSERT_EQ(read->entries.size(), 2U);
  EXPECT_EQ(read->entries[0].path, "a.wav");
  EXPECT_EQ(read->entries[0].hash, "");
  EXPECT_FALSE(read->entries[0].size) << "none, and not that of an empty file";
  EXPECT_EQ(read->entries[1].hash, "abcdef");
  EXPECT_EQ(read->entries[1].size, 7U);
  EXPECT_NE(read->toXml().find("<path>a.wav</path>"), std::string::npos);
}

TEST(ManifestTest, WhatIsNoneHasAReason) {
  EXPECT_EQ(whyNot("<hashlist>"), "it is not well-formed");
  EXPECT_EQ(whyNot("<other/>"), "it is no such list");
  for (const char* path : {"../a.wav", "/etc/passwd", "a/../../b", "..", "", "a/.."}) {
    EXPECT_EQ(whyNot(std::string("<hashlist><hashes><hash><path>") + path +
                     "</path></hash></hashes></hashlist>"),
              "a path in it leads out of the folder")
        << path;
  }
}

TEST(ManifestTest, TimesAreThoseOfTheWorld) {
  EXPECT_EQ(Manifest::timeText(0), "1970-01-01T00:00:00+00:00");
  EXPECT_EQ(Manifest::timeText(1'000'000'000), "2001-09-09T01:46:40+00:00");
}

TEST(ManifestChainTest, ReadsAsItWasWritten) {
  ManifestChain chain;
  chain.links = {{1, "0001_a & b.mhl", "c4one"}, {2, "0002_a.mhl", "c4two"}};
  std::string reason;
  const auto read = ManifestChain::fromXml(chain.toXml(), reason);
  ASSERT_TRUE(read) << reason;
  ASSERT_EQ(read->links.size(), 2U);
  EXPECT_EQ(read->links[0].number, 1U);
  EXPECT_EQ(read->links[0].file, "0001_a & b.mhl");
  EXPECT_EQ(read->links[1].c4, "c4two");
  EXPECT_FALSE(ManifestChain::fromXml(manifest().toXml(), reason));
}

}  // namespace
