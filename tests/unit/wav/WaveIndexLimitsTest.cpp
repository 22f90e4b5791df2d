// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Indexed.h"
#include "support/ByteBuilder.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/WaveImage.h"
#include "wav/WaveIndex.h"

namespace {

using Bytes = std::vector<std::byte>;

constexpr std::size_t kRiffSizeAt = 4;

WaveIndex indexWithRiffSize(const Bytes& file, std::uint32_t riffSize) {
  return indexOf(ByteBuilder().bytes(file).patch32(kRiffSizeAt, riffSize).get());
}

// Format at 12, "JUNK" at 36, data at 54, "LIST" at 68, end at 80.
Bytes fourChunks() {
  return WaveBytes()
      .format24()
      .chunk("JUNK", Bytes(10))
      .chunk("data", Bytes(6))
      .chunk("LIST", Bytes(4))
      .get();
}

}  // namespace

TEST(WaveIndexLimitsTest, ARiffSizeThatFitsReachesEveryChunk) {
  const Bytes file = fourChunks();
  ASSERT_EQ(file.size(), 80U);
  EXPECT_EQ(indexOf(file).chunks.size(), 4U);
}

TEST(WaveIndexLimitsTest, ChunksAfterASmallRiffSizeAreNotIndexed) {
  const WaveIndex index = indexWithRiffSize(fourChunks(), 60);  // ends at 68
  EXPECT_TRUE(index.isValidFile);
  EXPECT_EQ(index.chunks.size(), 3U);
}

TEST(WaveIndexLimitsTest, AChunkHeaderThatJustFitsTheRiffSizeIsIndexed) {
  EXPECT_EQ(indexWithRiffSize(fourChunks(), 68).chunks.size(), 4U);  // ends at 76 = 68 + 8
  EXPECT_EQ(indexWithRiffSize(fourChunks(), 67).chunks.size(), 3U);
}

TEST(WaveIndexLimitsTest, ALargeRiffSizeIsHarmless) {
  EXPECT_EQ(indexWithRiffSize(fourChunks(), 73).chunks.size(), 4U);
  EXPECT_EQ(indexWithRiffSize(fourChunks(), 1000000).chunks.size(), 4U);
  EXPECT_EQ(indexWithRiffSize(fourChunks(), 0x80000000).chunks.size(), 4U);
  EXPECT_EQ(indexWithRiffSize(fourChunks(), 0xFFFFFFF7).chunks.size(), 4U);
}

TEST(WaveIndexLimitsTest, ARiffSizeThatWrapsLeavesNothingToWalk) {
  const WaveIndex index = indexWithRiffSize(fourChunks(), 0xFFFFFFFF);  // ends at 7
  EXPECT_TRUE(index.chunks.empty());
  EXPECT_FALSE(index.isValidFile);
}

TEST(WaveIndexLimitsTest, TheWalkNeedsRoomForOneChunkHeader) {
  EXPECT_EQ(indexWithRiffSize(fourChunks(), 12).chunks.size(), 1U);  // ends at 20 = 12 + 8
  EXPECT_EQ(indexWithRiffSize(fourChunks(), 11).chunks.size(), 0U);
  EXPECT_EQ(indexWithRiffSize(fourChunks(), 0).chunks.size(), 0U);
}

TEST(WaveIndexLimitsTest, AnUnknownChunkMayEndWithTheFile) {
  const Bytes file = WaveBytes().format24().data(Bytes(6)).chunk("LIST", 5, Bytes(5)).get();
  EXPECT_EQ(indexOf(file).chunks.size(), 3U);
}

TEST(WaveIndexLimitsTest, AnUnknownChunkThatRunsPastTheEndEndsTheWalk) {
  const Bytes file = WaveBytes().format24().data(Bytes(6)).chunk("LIST", 6, Bytes(5)).get();
  const WaveIndex index = indexOf(file);
  EXPECT_EQ(index.chunks.size(), 2U);
  EXPECT_TRUE(index.isValidFile);
}

TEST(WaveIndexLimitsTest, NothingAfterATruncatedUnknownChunkIsFound) {
  const Bytes file =
      WaveBytes().format24().chunk("LIST", 1000, Bytes(4)).chunk("data", Bytes(6)).get();
  const WaveIndex index = indexOf(file);
  EXPECT_EQ(index.chunks.size(), 1U);
  EXPECT_FALSE(index.isValidFile);
}

TEST(WaveIndexLimitsTest, ADataChunkThatRunsPastTheEndKeepsItsStatedSize) {
  const Bytes file = WaveBytes().format24().chunk("data", 100000, Bytes(6)).get();
  const WaveIndex index = indexOf(file);
  EXPECT_TRUE(index.isValidFile);
  ASSERT_EQ(index.chunks.size(), 2U);
  EXPECT_EQ(index.chunks[1].chunkSize, 100000U);
  EXPECT_EQ(index.header.dataChunkLength, 100000U);
  EXPECT_EQ(index.header.dataChunkEnd, 44U + 100000);
}

TEST(WaveIndexLimitsTest, TheEndOfTheDataIsTakenIn32Bits) {
  const Bytes file = WaveBytes().format24().chunk("data", 0xFFFFFFF0, Bytes(6)).get();
  const WaveIndex index = indexOf(file);
  EXPECT_EQ(index.header.dataChunkLength, 0xFFFFFFF0U);
  EXPECT_EQ(index.header.dataChunkEnd, 44U - 16);
}

TEST(WaveIndexLimitsTest, ASizeThatWrapsThePositionEndsTheWalk) {
  // In 32 bits the next position after such a chunk would be that of the format chunk, for ever.
  for (const char* identifier : {"data", "fmt "}) {
    const Bytes file =
        WaveBytes().format24().chunk(identifier, 0U - 32U, Bytes(6)).chunk("LIST", Bytes(4)).get();
    EXPECT_EQ(indexOf(file).chunks.size(), 2U) << identifier;
  }
}

TEST(WaveIndexLimitsTest, ASizeInTheUpperHalfEndsTheWalk) {
  const Bytes file =
      WaveBytes().format24().chunk("data", 0x80000000, Bytes(6)).chunk("LIST", Bytes(4)).get();
  EXPECT_EQ(indexOf(file).chunks.size(), 2U);
}

TEST(WaveIndexLimitsTest, TheFormatIsReadWhateverItsSizeSays) {
  // Two bytes by its size; the next chunk, read two bytes on, holds the fields that follow.
  const Bytes file = ByteBuilder()
                         .text("RIFF")
                         .u32(58)  // RIFF size
                         .text("WAVE")
                         .text("fmt ")
                         .u32(2)        // size
                         .u16(1)        // format tag; the chunk ends here
                         .text("data")  // channels 0x6164 and half the rate, 0x6174
                         .u32(36)       // the rate's other half, and byte rate 0x....0000
                         .zeros(36)
                         .get();
  const WaveIndex index = indexOf(file);
  EXPECT_TRUE(index.isValidFile);
  EXPECT_EQ(index.header.Subchunk1Size, 2U);
  EXPECT_EQ(index.header.NumChannels, 0x6164);
  EXPECT_EQ(index.header.SampleRate, 0x00246174U);
  EXPECT_EQ(index.header.dataChunkPosition, 30U);
}

TEST(WaveIndexLimitsTest, FormatFieldsPastTheEndOfTheFileAreZero) {
  const Bytes file = WaveBytes()
                         .data(Bytes(16))
                         .chunk("fmt ", 16,
                                ByteBuilder()
                                    .u16(3)      // format tag
                                    .u16(2)      // channels
                                    .u32(48000)  // frames per second
                                    .u8(0xAA)    // one byte of the byte rate
                                    .get())
                         .get();
  const WaveIndex index = indexOf(file);
  EXPECT_TRUE(index.isValidFile);
  EXPECT_EQ(index.header.SampleRate, 48000U);
  EXPECT_EQ(index.header.ByteRate, 0xAAU);
  EXPECT_EQ(index.header.BlockAlign, 0);
  EXPECT_EQ(index.header.BitsPerSample, 0);
}

TEST(WaveIndexLimitsTest, LessThanAChunkHeaderAtTheEndIsIgnored) {
  for (std::size_t count = 0; count < 8; ++count) {
    const ByteBuilder file = ByteBuilder().bytes(fourChunks()).zeros(count);
    EXPECT_EQ(indexWithRiffSize(file.get(), 0xFFFF).chunks.size(), 4U) << count;
  }
  const ByteBuilder file = ByteBuilder().bytes(fourChunks()).zeros(8);
  EXPECT_EQ(indexWithRiffSize(file.get(), 0xFFFF).chunks.size(), 5U);
}

// Each eight zero bytes are a chunk without a name and a payload.
TEST(WaveIndexLimitsTest, AFileWithMoreChunksThanAnyRecordingIsNotValid) {
  const Bytes start = fourChunks();
  const std::size_t most = WaveIndex::kMostChunks - 4;
  const WaveIndex just = indexWithRiffSize(ByteBuilder().bytes(start).zeros(8 * most).get(), ~8U);
  EXPECT_TRUE(just.isValidFile);
  EXPECT_EQ(just.chunks.size(), WaveIndex::kMostChunks);
  const Bytes file = ByteBuilder().bytes(start).zeros(8 * most + 8).get();
  const WaveIndex tooMany = indexWithRiffSize(file, ~8U);
  EXPECT_FALSE(tooMany.isValidFile);
  EXPECT_EQ(tooMany.whyInvalid(file.size()), "more chunks than a recording has");
  EXPECT_EQ(tooMany.chunks.size(), WaveIndex::kMostChunks);
  EXPECT_EQ(tooMany.header.SampleRate, 48000U) << "what was found on the way stays";
}

TEST(WaveIndexLimitsTest, IndexingAgainForgetsThatThereWereTooMany) {
  WaveIndex index = indexWithRiffSize(
      ByteBuilder().bytes(fourChunks()).zeros(8 * WaveIndex::kMostChunks).get(), ~8U);
  ASSERT_FALSE(index.isValidFile);
  index.parse(*WaveImage::fromBytes(fourChunks()));
  EXPECT_TRUE(index.isValidFile);
}

// Headers at every distance from where a look into a file that is not loaded may end.
TEST(WaveIndexLimitsTest, ChunkHeadersAreFoundAtAnyPlaceOfAFile) {
  const TemporaryFolder folder;
  for (std::size_t size = 4000; size < 4200; ++size) {
    const Bytes file =
        WaveBytes().chunk("JUNK", Bytes(size)).format24().chunk("data", Bytes(60)).get();
    std::string whyNot;
    const auto image = WaveImage::fromFile(folder.file("far.wav", file), whyNot);
    ASSERT_NE(image, nullptr) << whyNot;
    WaveIndex index;
    index.parse(*image);
    ASSERT_EQ(index.chunks.size(), 3U) << size;
    ASSERT_EQ(index.header.SampleRate, 48000U) << size;
    ASSERT_EQ(index.header.dataChunkPosition, 20 + size + 24 + 8);
  }
}
