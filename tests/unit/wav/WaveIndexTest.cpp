// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WaveIndex.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Indexed.h"
#include "support/ByteBuilder.h"
#include "support/WaveBytes.h"
#include "wav/WaveImage.h"

namespace {

using Bytes = std::vector<std::byte>;
using testing::HasSubstr;

constexpr std::uint32_t kBextID = 0x74786562;
constexpr std::uint32_t kJunkID = 0x4B4E554A;

std::vector<std::uint32_t> identifiers(const WaveIndex& index) {
  std::vector<std::uint32_t> found;
  for (const ChunkInfo& chunk : index.chunks) found.push_back(chunk.chunkID);
  return found;
}

void expectChunk(const ChunkInfo& chunk, std::uint32_t id, std::uint32_t size, std::uint32_t at) {
  EXPECT_EQ(chunk.chunkID, id);
  EXPECT_EQ(chunk.chunkSize, size);
  EXPECT_EQ(chunk.streamPos, at);
}

// The smallest file that is valid.
ByteBuilder smallest() {
  return ByteBuilder()
      .text("RIFF")
      .u32(40)  // RIFF size: the file without these first 8 bytes
      .text("WAVE")
      .text("fmt ")
      .u32(16)      // format chunk's size
      .u16(1)       // format tag: integer PCM
      .u16(2)       // channels
      .u32(48000)   // frames per second
      .u32(288000)  // bytes per second
      .u16(6)       // block align
      .u16(24)      // bits per sample
      .text("data")
      .u32(4)  // data chunk's size
      .zeros(4);
}

}  // namespace

TEST(WaveIndexTest, IdentifiersAreLittleEndian) {
  EXPECT_EQ(kRiffID, 0x46464952U);
  EXPECT_EQ(kWaveID, 0x45564157U);
  EXPECT_EQ(kFmtID, 0x20746D66U);
  EXPECT_EQ(kDataID, 0x61746164U);
}

TEST(WaveIndexTest, ReadsEveryField) {
  const WaveIndex index = indexOf(smallest().get());
  EXPECT_TRUE(index.isValidFile);
  EXPECT_EQ(index.encoding, 1U);
  EXPECT_EQ(index.header.ChunkID, kRiffID);
  EXPECT_EQ(index.header.ChunkSize, 40U);
  EXPECT_EQ(index.header.Format, kWaveID);
  EXPECT_EQ(index.header.Subchunk1ID, kFmtID);
  EXPECT_EQ(index.header.Subchunk1Size, 16U);
  EXPECT_EQ(index.header.AudioFormat, 1);
  EXPECT_EQ(index.header.NumChannels, 2);
  EXPECT_EQ(index.header.SampleRate, 48000U);
  EXPECT_EQ(index.header.ByteRate, 288000U);
  EXPECT_EQ(index.header.BlockAlign, 6);
  EXPECT_EQ(index.header.BitsPerSample, 24);
  EXPECT_EQ(index.header.dataChunkPosition, 44U);
  EXPECT_EQ(index.header.dataChunkLength, 4U);
  EXPECT_EQ(index.header.dataChunkEnd, 48U);
  ASSERT_EQ(index.chunks.size(), 2U);
  expectChunk(index.chunks[0], kFmtID, 16, 20);
  expectChunk(index.chunks[1], kDataID, 4, 44);
}

TEST(WaveIndexTest, StoredFieldsAreNotRecomputed) {
  Bytes file = smallest().patch32(28, 12345).patch32(32, 0x00180063).get();
  const WaveIndex index = indexOf(file);
  EXPECT_EQ(index.header.ByteRate, 12345U);
  EXPECT_EQ(index.header.BlockAlign, 99);
  EXPECT_EQ(index.header.BitsPerSample, 24);
}

TEST(WaveIndexTest, FortySevenBytesAreTooFewAndNothingIsTouched) {
  Bytes file = smallest().get();
  file.resize(47);
  const WaveIndex index = indexOf(file);
  EXPECT_FALSE(index.isValidFile);
  EXPECT_EQ(index.header.ChunkID, 0U);
  EXPECT_EQ(index.header.Subchunk1ID, 0U);
  EXPECT_TRUE(index.chunks.empty());
  EXPECT_THAT(whyInvalid(file), HasSubstr("48"));
}

TEST(WaveIndexTest, AnEmptyFileIsInvalid) {
  EXPECT_FALSE(indexOf({}).isValidFile);
}

TEST(WaveIndexTest, AFileWithoutADataChunkIsInvalid) {
  const Bytes file = WaveBytes().chunk("fmt ", ByteBuilder().zeros(28).get()).get();
  ASSERT_EQ(file.size(), 48U);
  const WaveIndex index = indexOf(file);
  EXPECT_FALSE(index.isValidFile);
  EXPECT_EQ(identifiers(index), std::vector{kFmtID});
  EXPECT_EQ(index.header.dataChunkPosition, 0U);
  EXPECT_THAT(whyInvalid(file), HasSubstr("no data chunk"));
}

TEST(WaveIndexTest, AFileWithoutAFormatChunkIsInvalid) {
  const Bytes file = WaveBytes().data(Bytes(28)).get();
  EXPECT_FALSE(indexOf(file).isValidFile);
  EXPECT_EQ(indexOf(file).header.Subchunk1ID, 0U);
  EXPECT_THAT(whyInvalid(file), HasSubstr("no format chunk"));
}

TEST(WaveIndexTest, AFileThatIsNotRiffIsInvalid) {
  const Bytes file = smallest().patch32(0, 0x58464952).get();  // "RIFX"
  EXPECT_FALSE(indexOf(file).isValidFile);
  EXPECT_TRUE(indexOf(file).chunks.empty());
  EXPECT_EQ(indexOf(file).header.ChunkID, 0x58464952U);
  EXPECT_THAT(whyInvalid(file), HasSubstr("not a RIFF file"));
}

TEST(WaveIndexTest, ARiffFileThatIsNotWaveIsInvalid) {
  const Bytes file = smallest().patch32(8, 0x20495641).get();  // "AVI "
  EXPECT_FALSE(indexOf(file).isValidFile);
  EXPECT_TRUE(indexOf(file).chunks.empty());
  EXPECT_THAT(whyInvalid(file), HasSubstr("not WAVE"));
}

TEST(WaveIndexTest, AValidFileHasNoFault) {
  EXPECT_EQ(whyInvalid(smallest().get()), "");
}

TEST(WaveIndexTest, UnknownChunksAreIndexedInFileOrder) {
  const Bytes file = WaveBytes()
                         .chunk("JUNK", Bytes(4))
                         .format24()
                         .chunk("bext", Bytes(10))
                         .data(Bytes(6))
                         .chunk("JUNK", Bytes(2))
                         .get();
  const WaveIndex index = indexOf(file);
  EXPECT_TRUE(index.isValidFile);
  EXPECT_EQ(identifiers(index), (std::vector{kJunkID, kFmtID, kBextID, kDataID, kJunkID}));
  expectChunk(index.chunks[0], kJunkID, 4, 20);
  expectChunk(index.chunks[2], kBextID, 10, 12 + 12 + 24 + 8);
}

TEST(WaveIndexTest, TheFormatChunkMayFollowTheData) {
  const WaveIndex index = indexOf(WaveBytes().data(Bytes(12)).format24().get());
  EXPECT_TRUE(index.isValidFile);
  EXPECT_EQ(index.header.dataChunkPosition, 20U);
  EXPECT_EQ(index.header.BitsPerSample, 24);
}

TEST(WaveIndexTest, ALaterDataChunkOverridesAnEarlierOne) {
  const WaveIndex index = indexOf(WaveBytes().format24().data(Bytes(6)).data(Bytes(12)).get());
  EXPECT_EQ(index.header.dataChunkPosition, 12U + 24 + 14 + 8);
  EXPECT_EQ(index.header.dataChunkLength, 12U);
  EXPECT_EQ(index.header.dataChunkEnd, 12U + 24 + 14 + 8 + 12);
  EXPECT_EQ(identifiers(index), (std::vector{kFmtID, kDataID, kDataID}));
}

TEST(WaveIndexTest, ALaterFormatChunkOverridesAnEarlierOne) {
  const Bytes second = ByteBuilder()
                           .u16(3)       // format tag: IEEE float
                           .u16(1)       // channels
                           .u32(44100)   // frames per second
                           .u32(176400)  // bytes per second
                           .u16(4)       // block align
                           .u16(32)      // bits per sample
                           .u16(0)       // size of the extension
                           .get();
  const WaveIndex index =
      indexOf(WaveBytes().format24().data(Bytes(6)).chunk("fmt ", second).get());
  EXPECT_EQ(index.encoding, 3U);
  EXPECT_EQ(index.header.AudioFormat, 3);
  EXPECT_EQ(index.header.NumChannels, 1);
  EXPECT_EQ(index.header.SampleRate, 44100U);
  EXPECT_EQ(index.header.BitsPerSample, 32);
  EXPECT_EQ(index.header.Subchunk1Size, 18U);
}

TEST(WaveIndexTest, AnOddChunkIsFollowedAtOnceByTheNext) {
  const Bytes file = WaveBytes().format24().chunk("JUNK", Bytes(3)).chunk("data", Bytes(6)).get();
  const WaveIndex index = indexOf(file);
  EXPECT_TRUE(index.isValidFile);
  expectChunk(index.chunks[2], kDataID, 6, 12 + 24 + 11 + 8);
}

TEST(WaveIndexTest, APadByteAfterAnOddChunkIsTakenForTheNextIdentifier) {
  const Bytes file = WaveBytes()
                         .chunk("JUNK", 3, Bytes(4))  // three bytes and a pad byte
                         .format24()
                         .chunk("data", Bytes(6))
                         .get();
  const WaveIndex index = indexOf(file);
  EXPECT_FALSE(index.isValidFile);
  // "\0fmt" with the size " " 16 0 0: far past the end, so the walk stops there.
  EXPECT_EQ(identifiers(index), std::vector{kJunkID});
}

TEST(WaveIndexTest, AMisreadIdentifierOfAFittingSizeDoesNotEndTheWalk) {
  const Bytes file = ByteBuilder()
                         .text("RIFF")
                         .u32(0xFFFF)  // RIFF size, larger than the file
                         .text("WAVE")
                         .text("JUNK")
                         .u32(3)    // its size, odd
                         .zeros(3)  // its payload
                         .u8(0)     // pad byte: the next identifier is read from here on
                         .text("LIS")
                         .u8(5)     // misread: low byte of the size
                         .zeros(3)  // misread: the rest of the size
                         .zeros(5)  // misread: payload
                         .text("data")
                         .u32(6)  // data chunk's size
                         .zeros(6)
                         .get();
  const WaveIndex index = indexOf(file);
  EXPECT_EQ(identifiers(index), (std::vector<std::uint32_t>{kJunkID, 0x53494C00, kDataID}));
  EXPECT_EQ(index.header.dataChunkPosition, 12U + 11 + 13 + 8);
}

TEST(WaveIndexTest, FindGivesTheFirstChunkOfThatName) {
  const Bytes file =
      WaveBytes().chunk("bext", Bytes(10)).format24().chunk("bext", Bytes(20)).data({}).get();
  const WaveIndex index = indexOf(file);
  ASSERT_TRUE(index.find("bext").has_value());
  expectChunk(*index.find("bext"), kBextID, 10, 20);
  EXPECT_FALSE(index.find("LIST").has_value());
  EXPECT_FALSE(index.find("bex").has_value());
  EXPECT_FALSE(index.find("bextt").has_value());
  EXPECT_FALSE(index.find("BEXT").has_value());
  EXPECT_FALSE(index.find("").has_value());
}

TEST(WaveIndexTest, AFurtherParseKeepsWhatTheNewImageDoesNotSet) {
  WaveIndex index = indexOf(smallest().get());
  index.parse(*WaveImage::fromBytes(WaveBytes().data(Bytes(36)).get()));
  EXPECT_EQ(identifiers(index), std::vector{kDataID});
  EXPECT_EQ(index.header.dataChunkLength, 36U);
  EXPECT_EQ(index.header.SampleRate, 48000U);
  EXPECT_TRUE(index.isValidFile);
  index.parse(*WaveImage::fromBytes(Bytes(47)));
  EXPECT_FALSE(index.isValidFile);
  EXPECT_EQ(index.header.SampleRate, 48000U);
}
