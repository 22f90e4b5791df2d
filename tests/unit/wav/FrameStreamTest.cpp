// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/FrameStream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/WaveFileReader.h"

namespace {

using Bytes = std::vector<std::byte>;

// Longer than a few of the blocks that a stream reads at once.
constexpr std::int32_t kFrames = 150'001;

Bytes longTake() {
  std::vector<std::int32_t> values;
  for (std::int32_t i = 0; i < 2 * kFrames; ++i) values.push_back(i * 27 - 4'000'000);
  return WaveBytes().format24().data(WaveBytes::samples24(values)).get();
}

std::unique_ptr<WaveFileReader> opened(const std::filesystem::path& path) {
  std::string whyNot;
  auto reader = WaveFileReader::openFile(path, whyNot);
  EXPECT_EQ("", whyNot);
  return reader;
}

// All frames, read in blocks of this many floats.
std::vector<float> all(FrameStream& stream, std::size_t blockFloats) {
  std::vector<float> found;
  std::vector<float> block(blockFloats);
  while (const auto count = stream.read(block)) {
    found.insert(found.end(), block.begin(), block.begin() + static_cast<long>(2 * count));
  }
  return found;
}

// The same by single frames from memory.
std::vector<float> oneByOne(const Bytes& file) {
  const auto reader = WaveFileReader::readFromData(file);
  std::vector<float> found;
  float left = 0;
  float right = 0;
  reader->beginReadSample();
  while (reader->readNextSample(left, right)) found.insert(found.end(), {left, right});
  return found;
}

class FrameStreamTest : public testing::Test {
 protected:
  TemporaryFolder _folder;
};

TEST_F(FrameStreamTest, ReadsFromTheFileWhatSingleFramesReadFromMemory) {
  const Bytes file = longTake();
  const auto reader = opened(_folder.file("take.wav", file));
  FrameStream stream(*reader);
  EXPECT_EQ(static_cast<std::uint64_t>(kFrames), stream.framesLeft());
  EXPECT_EQ(oneByOne(file), all(stream, 5120));
  EXPECT_EQ(0U, stream.framesLeft());
  EXPECT_EQ(0U, reader->image()->heldFrom(0)) << "a stream has nothing read ahead";
}

TEST_F(FrameStreamTest, BlockSizesDoNotMatter) {
  const Bytes file = longTake();
  const auto reader = opened(_folder.file("take.wav", file));
  const std::vector<float> expected = oneByOne(file);
  for (const std::size_t floats : {2U, 3U, 998U, 81'920U, 100'000U, 400'000U}) {
    FrameStream stream(*reader);
    EXPECT_EQ(expected, all(stream, floats)) << floats;
  }
}

TEST_F(FrameStreamTest, WhatIsReadAtOnceDoesNotMatter) {
  const Bytes file = longTake();
  const auto reader = opened(_folder.file("take.wav", file));
  const std::vector<float> expected = oneByOne(file);
  for (const std::size_t bytes : {6U, 1000U, 1U << 20, 1U << 30}) {
    FrameStream stream(*reader, bytes);
    EXPECT_EQ(expected, all(stream, 5120)) << bytes;
  }
}

TEST_F(FrameStreamTest, PassesPackedFramesOnAsTheyStand) {
  const Bytes file = longTake();
  const auto reader = opened(_folder.file("take.wav", file));
  const auto data = std::span(file).subspan(reader->header().dataChunkPosition, 6 * kFrames);
  for (const std::uint64_t most : {1'000U, 40'000U, 41'000U, 1U << 20}) {
    FrameStream stream(*reader);
    EXPECT_TRUE(stream.isPair24());
    std::vector<float> few(2 * 7);
    EXPECT_EQ(stream.read(few), 7U) << "whatever was read before";
    Bytes found(data.begin(), data.begin() + 6 * 7);
    for (auto packed = stream.readPacked(most); !packed.empty(); packed = stream.readPacked(most)) {
      ASSERT_EQ(packed.size() % 6, 0U);
      ASSERT_LE(packed.size(), 6 * most);
      found.insert(found.end(), packed.begin(), packed.end());
    }
    EXPECT_TRUE(std::ranges::equal(found, data)) << most;
    EXPECT_EQ(stream.framesLeft(), 0U);
    EXPECT_EQ(stream.failure(), "");
  }
}

TEST_F(FrameStreamTest, PassesPackedFramesOnFromAnywhereToAnywhere) {
  const Bytes file = longTake();
  const auto fromFile = opened(_folder.file("take.wav", file));
  const auto fromMemory = WaveFileReader::readFromData(file);
  const std::size_t data = fromFile->header().dataChunkPosition;
  for (const WaveFileReader* const reader : {fromFile.get(), fromMemory.get()}) {
    FrameStream stream(*reader);
    EXPECT_FALSE(stream.readPacked(100).empty());
    stream.seek(50'000);
    stream.stopAt(50'012);
    const auto packed = stream.readPacked(10);
    EXPECT_TRUE(std::ranges::equal(packed, std::span(file).subspan(data + 300'000, 60)));
    std::vector<float> rest(10);
    EXPECT_EQ(stream.read(rest), 2U) << "what is left, as floats";
    EXPECT_TRUE(stream.readPacked(10).empty());
  }
}

TEST_F(FrameStreamTest, OnlyTwoChannelsOf24BitsArePairs) {
  const auto isPair = [](const Bytes& file) {
    return FrameStream(*WaveFileReader::readFromData(file)).isPair24();
  };
  const Bytes data(36);
  EXPECT_TRUE(isPair(WaveBytes().format24().data(data).get()));
  EXPECT_FALSE(isPair(WaveBytes().formatFloat().data(data).get()));
  EXPECT_FALSE(isPair(WaveBytes().format(1, 1, 48'000, 24).data(data).get()));
  EXPECT_FALSE(isPair(WaveBytes().format(1, 3, 48'000, 24).data(data).get()));
  EXPECT_FALSE(isPair(WaveBytes().format(1, 2, 48'000, 16).data(data).get()));
}

TEST_F(FrameStreamTest, PassesNothingPackedOnWhereReadingFails) {
  const auto path = _folder.file("take.wav", longTake());
  const auto reader = opened(path);
  FrameStream stream(*reader);
  std::filesystem::resize_file(path, 600'000);
  std::size_t bytes = 0;
  for (auto packed = stream.readPacked(10'000); !packed.empty(); packed = stream.readPacked(10'000))
    bytes += packed.size();
  EXPECT_EQ(bytes, 2 * FrameStream::kBlockBytes) << "no part of a block";
  EXPECT_GT(stream.framesLeft(), 0U);
  EXPECT_EQ(stream.failure(), "The file became shorter");
}

TEST_F(FrameStreamTest, ReadsFromMemory) {
  const Bytes file = longTake();
  const auto reader = WaveFileReader::readFromData(file);
  FrameStream stream(*reader);
  EXPECT_EQ(oneByOne(file), all(stream, 5120));
}

TEST_F(FrameStreamTest, ReadsWhileTheImageIsFollowed) {
  const Bytes file = longTake();
  const auto reader = opened(_folder.file("take.wav", file));
  FrameStream stream(*reader);
  reader->image()->follow(0);
  EXPECT_EQ(oneByOne(file), all(stream, 64));
}

TEST_F(FrameStreamTest, ReadsFromWhereverItGoes) {
  const Bytes file = longTake();
  const auto reader = opened(_folder.file("take.wav", file));
  const std::vector<float> expected = oneByOne(file);
  FrameStream stream(*reader);
  std::vector<float> block(2000);
  for (const std::uint64_t frame : {149'000U, 3U, 0U, 77'777U, 77'778U, 149'500U}) {
    stream.seek(frame);
    ASSERT_EQ(kFrames - frame, stream.framesLeft());
    const std::uint64_t count = stream.read(block);
    ASSERT_EQ(std::min<std::uint64_t>(1000, kFrames - frame), count);
    EXPECT_TRUE(std::equal(block.begin(), block.begin() + static_cast<long>(2 * count),
                           expected.begin() + static_cast<long>(2 * frame)));
  }
  stream.seek(kFrames + 5);
  EXPECT_EQ(0U, stream.framesLeft());
  EXPECT_EQ(0U, stream.read(block));
  stream.seek(0);
  EXPECT_EQ(expected, all(stream, 5120));
}

TEST_F(FrameStreamTest, EveryFormatReadsAsSingleFramesDo) {
  const Bytes samples(1234, std::byte{0x5A});
  for (const std::uint16_t channels : std::to_array<std::uint16_t>({0, 1, 2, 3, 7})) {
    for (const std::uint16_t bits : std::to_array<std::uint16_t>({0, 8, 16, 20, 24, 32, 64})) {
      const Bytes file = WaveBytes().format(1, channels, 48000, bits).data(samples).get();
      const auto reader = opened(_folder.file("take.wav", file));
      FrameStream stream(*reader);
      EXPECT_EQ(oneByOne(file), all(stream, 10)) << channels << " channels, " << bits << " bits";
      EXPECT_EQ("", stream.failure());
    }
  }
}

TEST_F(FrameStreamTest, AFileThatBecomesShorterFails) {
  const auto path = _folder.file("take.wav", longTake());
  const auto reader = opened(path);
  FrameStream stream(*reader);
  std::filesystem::resize_file(path, 500'000);
  const std::vector<float> found = all(stream, 5120);
  EXPECT_LT(found.size(), 2U * kFrames);
  EXPECT_EQ("The file became shorter", stream.failure());
}

// Channels beyond the second lie further and further behind their frame; the 32nd of 24 bits ends
// 1491 bytes after it began, the 700th 733,953.
TEST_F(FrameStreamTest, FramesThatReachFarReadAsSingleFramesDo) {
  Bytes samples(2'500'000);
  for (std::size_t i = 0; i < samples.size(); ++i) samples[i] = static_cast<std::byte>(i * i / 97);
  for (const std::uint16_t channels : std::to_array<std::uint16_t>({32, 700, 1000, 65535})) {
    const Bytes file = WaveBytes().format(1, channels, 48000, 24).data(samples).get();
    const auto reader = opened(_folder.file("take.wav", file));
    FrameStream stream(*reader);
    EXPECT_EQ(oneByOne(file), all(stream, 998)) << channels;
    EXPECT_EQ("", stream.failure());
  }
}

TEST_F(FrameStreamTest, FramesOfHalfAGigabyteAreNotHeld) {
  const auto path = _folder.file(
      "take.wav", WaveBytes().format(1, 65535, 48000, 65535).chunk("data", 0xF000'0000, {}).get());
  std::filesystem::resize_file(path, 0xF000'0000);
  FrameStream stream(*opened(path));
  EXPECT_EQ(std::vector<float>(14, -2.0F), all(stream, 10)) << "frames of an unknown width";
}

}  // namespace
