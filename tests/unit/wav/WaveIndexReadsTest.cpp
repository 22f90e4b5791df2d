// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "ReadMeter.h"
#include "support/ByteBuilder.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/WaveFileReader.h"

namespace {

using Bytes = std::vector<std::byte>;

constexpr std::uint32_t kAlmostFourGiB = 0xFFFF'0000;

// A file of these bytes and zeros behind them, which takes no room on the disk.
std::filesystem::path sparse(const TemporaryFolder& folder, const Bytes& start) {
  const auto path = folder.file("long.wav", ByteBuilder().bytes(start).patch32(4, ~8U).get());
  std::filesystem::resize_file(path, kAlmostFourGiB);
  return path;
}

std::unique_ptr<WaveFileReader> read(const std::filesystem::path& path) {
  std::string whyNot;
  ReadMeter::reset();
  auto reader = WaveFileReader::openFile(path, whyNot);
  if (!reader) throw std::runtime_error(whyNot);
  return reader;
}

}  // namespace

TEST(WaveIndexReadsTest, AFileOfZerosIsGivenUpEarly) {
  const TemporaryFolder folder;
  const auto reader = read(sparse(folder, WaveBytes().format24().data(Bytes(6)).get()));
  EXPECT_FALSE(reader->isValidFile());
  EXPECT_EQ(reader->chunks().size(), WaveIndex::kMostChunks);
  EXPECT_LE(reader->chunks().capacity(), 2 * WaveIndex::kMostChunks);
  EXPECT_GT(ReadMeter::reads(), 0U) << "the meter counts";
  EXPECT_LE(ReadMeter::reads(), 100U);
  EXPECT_LE(ReadMeter::bytes(), 8 * WaveIndex::kMostChunks + 16384);
}

TEST(WaveIndexReadsTest, ATakeOfFourGiBIsIndexedFromItsStart) {
  const TemporaryFolder folder;
  const auto start = WaveBytes().format24().recorderBext().chunk("data", kAlmostFourGiB, {}).get();
  const auto reader = read(sparse(folder, start));
  EXPECT_TRUE(reader->isValidFile());
  EXPECT_LE(ReadMeter::reads(), 4U);
  EXPECT_LE(ReadMeter::bytes(), 16384U);
}

TEST(WaveIndexReadsTest, OfAnExtensionOfFourGiBOnlyItsStartIsRead) {
  const TemporaryFolder folder;
  const auto start = WaveBytes().format24().data(Bytes(6)).chunk("bext", 0xFFFE'0000, {}).get();
  const auto reader = read(sparse(folder, start));
  const auto chunk = reader->getBextChunk();
  ASSERT_TRUE(chunk.has_value());
  EXPECT_EQ(chunk->chunkSize, 0xFFFE'0000U);
  ReadMeter::reset();
  EXPECT_EQ(reader->getChunkData(*chunk, 1000).length, 1000U);
  EXPECT_EQ(ReadMeter::bytes(), 1000U);
}
