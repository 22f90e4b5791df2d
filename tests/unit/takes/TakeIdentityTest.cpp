// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/TakeIdentity.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "unit/wav/ReadMeter.h"
#include "wav/WaveFileReader.h"

namespace {

constexpr std::size_t kSound = 3'000'000;

WaveBytes::Bytes sound(std::size_t changed = kSound) {
  WaveBytes::Bytes bytes(kSound);
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::byte>(i * 7 / 5);
  if (changed < bytes.size()) bytes[changed] ^= std::byte{1};
  return bytes;
}

WaveBytes::Bytes take(const WaveBytes::Bytes& samples, const char* history = "MSRAW=ON") {
  return WaveBytes().bext("TARN J4", history).format24().data(samples).get();
}

std::string identityOf(const std::filesystem::path& path) {
  std::string whyNot;
  const auto reader = WaveFileReader::openFile(path, whyNot);
  return reader ? TakeIdentity::of(*reader) : whyNot;
}

std::string identityOf(const WaveBytes::Bytes& bytes) {
  return TakeIdentity::of(*WaveFileReader::readFromData(bytes));
}

TEST(TakeIdentityTest, KnowsACopyAndARenamedTakeAgain) {
  const TemporaryFolder folder;
  const auto original = folder.file("R0001.WAV", take(sound()));
  const std::string identity = identityOf(original);
  EXPECT_EQ(identity.size(), 32U);
  std::filesystem::create_directory(folder.path() / "home");
  std::filesystem::copy_file(original, folder.path() / "home" / "copy.wav");
  EXPECT_EQ(identityOf(folder.path() / "home" / "copy.wav"), identity);
  std::filesystem::rename(original, folder.path() / "Bells at dawn.bwf");
  EXPECT_EQ(identityOf(folder.path() / "Bells at dawn.bwf"), identity);
}

// In each of what it is made of, one byte is another; the length is the same.
TEST(TakeIdentityTest, AnotherTakeOfTheSameLengthIsAnother) {
  std::set<std::string> identities{identityOf(take(sound()))};
  EXPECT_TRUE(identities.insert(identityOf(take(sound(), "MSRAW=NO"))).second);
  EXPECT_TRUE(identities.insert(identityOf(take(sound(0)))).second);
  EXPECT_TRUE(identities.insert(identityOf(take(sound(kSound / 2)))).second);
  EXPECT_TRUE(identities.insert(identityOf(take(sound(kSound - 1)))).second);
  WaveBytes::Bytes renamed = take(sound());
  renamed[4] ^= std::byte{1};  // the size in the header
  EXPECT_TRUE(identities.insert(identityOf(renamed)).second);
}

TEST(TakeIdentityTest, AnExtensionBehindTheSoundCounts) {
  const auto withHistory = [](const char* history) {
    return identityOf(
        WaveBytes().format24().data(sound()).bext("TARN J4", history).data({}).data(sound()).get());
  };
  EXPECT_NE(withHistory("MSRAW=ON"), withHistory("MSRAW=NO"));
}

TEST(TakeIdentityTest, ALongerTakeIsAnother) {
  WaveBytes::Bytes longer = sound();
  longer.resize(kSound + 6);
  EXPECT_NE(identityOf(take(sound())), identityOf(take(longer)));
}

TEST(TakeIdentityTest, ATakeOfNoLengthAndAShortOneHaveOne) {
  EXPECT_EQ(identityOf(take({})).size(), 32U);
  EXPECT_EQ(identityOf(take(WaveBytes::Bytes(6))).size(), 32U);
  EXPECT_NE(identityOf(take({})), identityOf(take(WaveBytes::Bytes(6))));
}

TEST(TakeIdentityTest, AChunkThatClaimsMoreThanTheFileHasIsCut) {
  const auto claiming = WaveBytes().recorderBext().format24().chunk("data", 0xFFFFFFF0U, sound());
  EXPECT_EQ(identityOf(claiming.get()).size(), 32U);
}

TEST(TakeIdentityTest, WhatIsNoWaveFileHasNone) {
  EXPECT_EQ(identityOf(WaveBytes::Bytes(1000)), "");
}

TEST(TakeIdentityTest, AFileThatBecameShorterHasNone) {
  const TemporaryFolder folder;
  const auto path = folder.file("R0001.WAV", take(sound()));
  std::string whyNot;
  const auto reader = WaveFileReader::openFile(path, whyNot);
  ASSERT_TRUE(reader);
  std::filesystem::resize_file(path, kSound / 2);
  EXPECT_EQ(TakeIdentity::of(*reader), "");
}

TEST(TakeIdentityTest, NoMoreIsReadOfALongTake) {
  const TemporaryFolder folder;
  const auto path = folder.file("R0001.WAV", take(WaveBytes::Bytes(20'000'000)));
  std::string whyNot;
  const auto reader = WaveFileReader::openFile(path, whyNot);
  ReadMeter::reset();
  EXPECT_NE(TakeIdentity::of(*reader), "");
  EXPECT_GE(ReadMeter::bytes(), 3 * TakeIdentity::kMostOfEach);
  EXPECT_LE(ReadMeter::bytes(), 5 * TakeIdentity::kMostOfEach);
}

}  // namespace
