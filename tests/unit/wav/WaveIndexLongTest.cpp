// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Indexed.h"
#include "support/ByteBuilder.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/FrameStream.h"
#include "wav/LongSizes.h"
#include "wav/WaveFileReader.h"

namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::byte>;

constexpr std::uint32_t kElsewhere = 0xFFFFFFFF;
constexpr std::uint64_t kMost = ~std::uint64_t{0};
constexpr std::uint64_t kGiB = std::uint64_t{1} << 30;

// A table of one entry, or of as many as it says.
Bytes table(const std::string& identifier, std::uint64_t size, std::uint32_t count = 1) {
  return ByteBuilder().u32(count).text(identifier).u64(size).get();
}

// "ds64" at 12, the format at 48, the data at 72; the samples begin at 80.
WaveBytes twoFrames(std::uint64_t riffSize, std::uint64_t dataSize) {
  return WaveBytes()
      .ds64(riffSize, dataSize)
      .format24()
      .chunk("data", kElsewhere, WaveBytes::samples24({1, 2, 3, 4}));
}

std::uint64_t framesOf(const Bytes& file) {
  return WaveFileReader::readFromData(file)->frameCount();
}

}  // namespace

TEST(WaveIndexLongTest, TheSizeOfTheDataComesFromTheChunkOfSizes) {
  for (const char* identifier : {"RF64", "BW64"}) {
    const Bytes file = twoFrames(84, 12).chunk("LIST", Bytes(4)).getLong(identifier);
    const WaveIndex index = indexOf(file);
    EXPECT_TRUE(index.isValidFile) << identifier;
    EXPECT_EQ(index.header.dataChunkPosition, 80U);
    EXPECT_EQ(index.header.dataChunkLength, 12U);
    EXPECT_EQ(index.header.dataChunkEnd, 92U);
    EXPECT_EQ(framesOf(file), 2U);
  }
}

TEST(WaveIndexLongTest, ChunksAfterTheDataAreFound) {
  const WaveIndex index = indexOf(twoFrames(kMost, 12).chunk("LIST", Bytes(4)).getLong());
  ASSERT_EQ(index.chunks.size(), 4U);
  EXPECT_EQ(index.chunks[3].streamPos, 100U);
  EXPECT_EQ(index.chunks[3].chunkSize, 4U);
}

TEST(WaveIndexLongTest, ASizeFieldThatIsASizeCountsAsItIs) {
  const Bytes file =
      WaveBytes().ds64(kMost, 999).format24().data(WaveBytes::samples24({1, 2})).getLong();
  EXPECT_EQ(indexOf(file).header.dataChunkLength, 6U);
}

TEST(WaveIndexLongTest, TheLongRiffSizeLimitsTheWalk) {
  const auto chunksWith = [](std::uint64_t riffSize) {
    return indexOf(twoFrames(riffSize, 12).chunk("LIST", Bytes(4)).getLong()).chunks.size();
  };
  EXPECT_EQ(chunksWith(91), 3U);  // a chunk header would end at 100
  EXPECT_EQ(chunksWith(92), 4U);
  EXPECT_EQ(chunksWith(kMost), 4U);
  EXPECT_EQ(chunksWith(5 * kGiB), 4U);
  EXPECT_EQ(chunksWith(0), 0U);
}

TEST(WaveIndexLongTest, AShortRiffSizeCountsWhereItIsOne) {
  const Bytes file = twoFrames(kMost, 12).chunk("LIST", Bytes(4)).getLong();
  EXPECT_EQ(indexOf(ByteBuilder().bytes(file).patch32(4, 91).get()).chunks.size(), 3U);
}

TEST(WaveIndexLongTest, DataThatClaimsMoreThanThereIsEndsWithTheFile) {
  for (const std::uint64_t size : {std::uint64_t{13}, 5 * kGiB, kMost - 80, kMost - 79, kMost}) {
    const Bytes file = twoFrames(kMost, size).getLong();
    const WaveIndex index = indexOf(file);
    EXPECT_TRUE(index.isValidFile) << size;
    EXPECT_EQ(index.header.dataChunkLength, size);
    EXPECT_EQ(index.header.dataChunkEnd, size > kMost - 80 ? kMost : 80 + size);
    EXPECT_EQ(framesOf(file), 2U) << size;
  }
  EXPECT_EQ(framesOf(twoFrames(kMost, 0).getLong()), 0U);
}

TEST(WaveIndexLongTest, OtherChunksHaveTheirSizesInTheTable) {
  const auto withTable = [](const Bytes& entries) {
    return indexOf(WaveBytes()
                       .ds64(kMost, 6, entries)
                       .chunk("axml", kElsewhere, Bytes(4))
                       .format24()
                       .chunk("data", kElsewhere, Bytes(6))
                       .getLong());
  };
  const WaveIndex index = withTable(table("axml", 4));
  EXPECT_TRUE(index.isValidFile);
  ASSERT_EQ(index.chunks.size(), 4U);
  EXPECT_EQ(index.chunks[1].chunkSize, 4U);
  const Bytes more = ByteBuilder().bytes(table("axml", 4, 2)).text("axml").u64(5).get();
  EXPECT_EQ(withTable(more).chunks[1].chunkSize, 4U) << "the first entry counts";
  // Entries that the chunk does not hold are none, whatever it says.
  EXPECT_EQ(withTable(table("axml", 4, kElsewhere)).chunks[1].chunkSize, 4U);
  EXPECT_FALSE(withTable(table("axml", 4, 0)).isValidFile);
  EXPECT_FALSE(withTable(table("LIST", 4)).isValidFile) << "its size is unknown: nothing follows";
  EXPECT_FALSE(withTable(table("axml", kMost)).isValidFile);
}

TEST(WaveIndexLongTest, AnEndlessTableIsReadNoFurther) {
  ByteBuilder entries;
  entries.u32(LongSizes::kMostEntries + 1);
  for (std::uint32_t i = 0; i < LongSizes::kMostEntries; ++i) entries.text("none").u64(1);
  const auto chunksWith = [](const ByteBuilder& table) {
    return indexOf(WaveBytes()
                       .ds64(kMost, 6, table.get())
                       .format24()
                       .chunk("axml", kElsewhere, Bytes(4))
                       .getLong())
        .chunks.size();
  };
  EXPECT_EQ(chunksWith(ByteBuilder(entries).text("axml").u64(4)), 2U);
  EXPECT_EQ(chunksWith(ByteBuilder().u32(1).text("axml").u64(4)), 3U);
}

TEST(WaveIndexLongTest, WithoutTheChunkOfSizesTheFileIsNotValid) {
  const auto samples = WaveBytes::samples24({1, 2});
  const char* const lacking = "an RF64 file without its sizes (ds64 chunk)";
  EXPECT_EQ(whyInvalid(WaveBytes().format24().data(samples).getLong()), lacking);
  EXPECT_EQ(whyInvalid(WaveBytes().chunk("JUNK", Bytes(28)).format24().data(samples).getLong()),
            lacking);
  EXPECT_EQ(whyInvalid(WaveBytes().format24().ds64(kMost, 6).data(samples).getLong()), lacking)
      << "it has to be the first chunk";
  EXPECT_EQ(whyInvalid(WaveBytes().chunk("ds64", Bytes(27)).format24().data(samples).getLong()),
            lacking);
  EXPECT_TRUE(indexOf(WaveBytes().format24().data(samples).getLong()).chunks.empty());
  EXPECT_EQ(whyInvalid(WaveBytes().ds64(kMost, 6).getLong()), "no format chunk") << "48 bytes";
  Bytes other = twoFrames(kMost, 12).getLong();
  other[8] = std::byte{'X'};
  EXPECT_EQ(whyInvalid(other), "a RIFF file, but not WAVE");
}

TEST(WaveIndexLongTest, AFileThatEndsInItsTableHasTheEntriesThatAreThere) {
  ByteBuilder file;
  file.bytes(WaveBytes().ds64(kMost, 6, table("axml", 4)).getLong());
  EXPECT_EQ(whyInvalid(file.patch32(16, kElsewhere).get()), "no format chunk");
}

TEST(WaveIndexLongTest, APadByteIsSkippedWhereThereIsOne) {
  for (const bool isPadded : {false, true}) {
    const Bytes odd(isPadded ? 4 : 3);
    const Bytes file = WaveBytes()
                           .ds64(kMost, 6)
                           .chunk("LIST", 3, odd)
                           .format24()
                           .chunk("data", kElsewhere, Bytes(6))
                           .getLong();
    EXPECT_TRUE(indexOf(file).isValidFile) << isPadded;
  }
}

TEST(WaveIndexLongTest, ARiffFileHasNoLongSizes) {
  const Bytes file =
      WaveBytes().ds64(kMost, 6).format24().chunk("data", kElsewhere, Bytes(6)).get();
  const WaveIndex index = indexOf(file);
  EXPECT_TRUE(index.isValidFile);
  EXPECT_EQ(index.header.dataChunkLength, kElsewhere);
  EXPECT_EQ(index.header.dataChunkEnd, 79U) << "in 32 bits";
}

/// A take of 5 GiB and six seconds of which next to nothing is on the disk, its loud frame at the
/// end, and a chunk after it.
class LongTakeTest : public testing::Test {
 protected:
  static constexpr std::uint64_t kFrames = 5 * kGiB / 6;
  static constexpr std::uint64_t kData = kFrames * 6;

  LongTakeTest() {
    const Bytes head =
        WaveBytes().ds64(kMost, kData).format24().chunk("data", kElsewhere, {}).getLong();
    const Bytes tail = ByteBuilder()
                           .bytes(WaveBytes::samples24({4194304, -2097152}))
                           .text("LIST")
                           .u32(4)
                           .text("tail")
                           .get();
    _path = _folder.file("long.wav", head);
    fs::resize_file(_path, head.size() + kData - 6);
    append(tail);
  }

  void append(const Bytes& bytes) const {
    std::ofstream out(_path, std::ios::binary | std::ios::app);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
  }

  [[nodiscard]] std::unique_ptr<WaveFileReader> open() const {
    std::string whyNot;
    auto reader = WaveFileReader::openFile(_path, whyNot);
    EXPECT_EQ(whyNot, "");
    return reader;
  }

  TemporaryFolder _folder;
  fs::path _path;
};

TEST_F(LongTakeTest, EveryFrameCounts) {
  const auto reader = open();
  ASSERT_TRUE(reader->isValidFile());
  EXPECT_EQ(reader->frameCount(), kFrames);
  EXPECT_DOUBLE_EQ(reader->durationSeconds(), static_cast<double>(kFrames) / 48000);
}

TEST_F(LongTakeTest, WhatFollowsTheDataIsFound) {
  const auto reader = open();
  ASSERT_EQ(reader->chunks().size(), 4U);
  EXPECT_GT(reader->chunks()[3].streamPos, 5 * kGiB);
  const WavArray tail = reader->getChunkData(reader->chunks()[3]);
  EXPECT_EQ(WaveFileReader::DecodeAsString(tail.bytes, tail.length), "tail");
}

TEST_F(LongTakeTest, TheLastFrameIsRead) {
  const auto reader = open();
  FrameStream stream(*reader);
  stream.seek(kFrames - 2);
  std::array<float, 8> samples{};
  ASSERT_EQ(stream.read(samples), 2U);
  EXPECT_EQ(samples[0], 0.0F);
  EXPECT_EQ(samples[2], 0.5F);
  EXPECT_EQ(samples[3], -0.25F);
}

TEST_F(LongTakeTest, LevelsPast4GiBAreMeasured) {
  const auto reader = open();
  reader->waitForMedium();
  float left = 0;
  float right = 0;
  // The last bytes of the data are never measured; this frame is one of them.
  const double end = static_cast<double>(kFrames) / 48000;
  reader->getSampleLevelMeterFrom(end - 0.01, end, left, right, 0, 120);
  EXPECT_EQ(left, 0.0F);
  EXPECT_GT(reader->readDataIdx(), 5 * kGiB - 100);
}
