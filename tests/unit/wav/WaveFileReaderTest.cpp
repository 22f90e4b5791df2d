// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WaveFileReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "support/ByteBuilder.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/BextLayout.h"

namespace {

using Bytes = std::vector<std::byte>;

constexpr std::uint32_t kExtensionID = 0x74786562;

Bytes recording() {
  return WaveBytes()
      .format24()
      .recorderBext()
      .data(WaveBytes::samples24({4194304, -4194304, 2097152, 0}))
      .get();
}

Bytes bytesOf(const WavArray& array) {
  const auto* const bytes = reinterpret_cast<const std::byte*>(array.bytes);
  return {bytes, bytes + array.length};
}

std::string asText(const std::string& bytes, std::uint64_t length) {
  return WaveFileReader::DecodeAsString(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                        length);
}

std::string textOf(std::errc error) {
  return std::make_error_code(error).message();
}

}  // namespace

TEST(WaveFileReaderTest, AReaderHoldsACopyOfTheWholeFile) {
  Bytes file = recording();
  const Bytes original = file;
  const auto reader = WaveFileReader::readFromData(file);
  std::fill(file.begin(), file.end(), std::byte{0});
  EXPECT_TRUE(reader->isValidFile());
  EXPECT_EQ(reader->raw().length, original.size());
  EXPECT_EQ(bytesOf(reader->raw()), original);
}

TEST(WaveFileReaderTest, AnUnusableFileStillGivesAReader) {
  for (const std::size_t size : {0U, 1U, 47U, 48U, 1000U}) {
    const auto reader = WaveFileReader::readFromData(Bytes(size));
    ASSERT_NE(reader, nullptr);
    EXPECT_FALSE(reader->isValidFile());
    EXPECT_EQ(reader->raw().length, size);
    EXPECT_TRUE(reader->chunks().empty());
    EXPECT_FALSE(reader->getBextChunk().has_value());
    EXPECT_NE(reader->whyInvalid(), "");
    EXPECT_TRUE(reader->isFinishReadSample());
  }
}

TEST(WaveFileReaderTest, AFreshReaderIsNotRaw) {
  const auto reader = WaveFileReader::readFromData(recording());
  EXPECT_FALSE(reader->isBoMSFormat());
  reader->setIsBoMSFormat(true);
  EXPECT_TRUE(reader->isBoMSFormat());
}

TEST(WaveFileReaderTest, TheBextChunkIsTheFirstOfThatName) {
  const auto reader = WaveFileReader::readFromData(
      WaveBytes().format24().bext("first", "").bext("second", "12").data({}).get());
  const auto chunk = reader->getBextChunk();
  ASSERT_TRUE(chunk.has_value());
  EXPECT_EQ(chunk->chunkID, kExtensionID);
  EXPECT_EQ(chunk->chunkSize, 602U);
  EXPECT_EQ(chunk->streamPos, 44U);
}

TEST(WaveFileReaderTest, AFileWithoutBextHasNone) {
  const auto reader = WaveFileReader::readFromData(WaveBytes().format24().data(Bytes(6)).get());
  EXPECT_FALSE(reader->getBextChunk().has_value());
}

TEST(WaveFileReaderTest, ChunkDataIsACopyOfThePayload) {
  const auto reader = WaveFileReader::readFromData(recording());
  const WavArray data = reader->getChunkData(*reader->getBextChunk());
  EXPECT_EQ(
      bytesOf(data),
      WaveBytes::bextPayload("TARN J4", "A=PCM,F=48000,W=24,M=stereo,T=J4;VERSION=1.00;MSRAW=ON;"));
  EXPECT_NE(data.bytes, reader->raw().bytes + reader->getBextChunk()->streamPos);
}

TEST(WaveFileReaderTest, FieldsOfTheBroadcastExtensionAreAtTheirOffsets) {
  const auto reader = WaveFileReader::readFromData(recording());
  const WavArray data = reader->getChunkData(*reader->getBextChunk());
  const auto text = [&data](BextField field) {
    return WaveFileReader::DecodeAsString(data.bytes + field.offset, field.size);
  };
  EXPECT_EQ(text(bext::kDescription), "");
  EXPECT_EQ(text(bext::kOriginator), "TARN J4");
  EXPECT_EQ(text(bext::kOriginatorReference), "REF");
  EXPECT_EQ(text(bext::kOriginationDate), "2026-05-04");
  EXPECT_EQ(text(bext::kOriginationTime), "03:02:01");
  EXPECT_EQ(text(bext::kUniqueMaterialIdentifier), "UMID");
  const std::string history =
      WaveFileReader::DecodeAsString(data.bytes + bext::kFixedSize, data.length - bext::kFixedSize);
  EXPECT_THAT(history, testing::EndsWith("MSRAW=ON;"));
}

TEST(WaveFileReaderTest, ChunkDataEndsWithTheFile) {
  const auto reader = WaveFileReader::readFromData(
      WaveBytes().format24().chunk("data", 1000, Bytes(6, std::byte{7})).get());
  EXPECT_EQ(bytesOf(reader->getChunkData(reader->chunks()[1])), Bytes(6, std::byte{7}));
  EXPECT_EQ(reader->getChunkData({kExtensionID, 10, 50}).length, 0U);
  EXPECT_EQ(reader->getChunkData({kExtensionID, 10, 51}).length, 0U);
  EXPECT_EQ(reader->getChunkData({kExtensionID, 0xFFFFFFFF, 0xFFFFFFFF}).length, 0U);
  EXPECT_EQ(reader->getChunkData({kExtensionID, 0, 12}).length, 0U);
}

TEST(WaveFileReaderTest, TextEndsAtTheFirstZero) {
  EXPECT_EQ(asText(std::string("ABC") + std::string(29, '\0'), 32), "ABC");
  EXPECT_EQ(asText(std::string("AB\0CD", 5), 5), "AB");
  EXPECT_EQ(asText(std::string(32, '\0'), 32), "");
}

TEST(WaveFileReaderTest, TextWithoutAZeroEndsAtItsLength) {
  EXPECT_EQ(asText(std::string(40, 'x'), 32), std::string(32, 'x'));
  EXPECT_EQ(asText("ABC", 0), "");
  EXPECT_EQ(WaveFileReader::DecodeAsString(nullptr, 0), "");
}

TEST(WaveFileReaderTest, EveryByteIsALatin1Character) {
  EXPECT_EQ(asText("\x7F\x80\xBF\xC0\xFF", 5), "\x7F\xC2\x80\xC2\xBF\xC3\x80\xC3\xBF");
  EXPECT_EQ(asText("a\tb\n", 4), "a\tb\n");
}

TEST(WaveFileReaderTest, SamplesAreReadInOrder) {
  const auto reader = WaveFileReader::readFromData(recording());
  float left = 0.0F;
  float right = 0.0F;
  reader->beginReadSample();
  EXPECT_EQ(reader->readDataIdx(), reader->header().dataChunkPosition);
  EXPECT_TRUE(reader->readNextSample(left, right));
  EXPECT_EQ(left, 0.5F);
  EXPECT_EQ(right, -0.5F);
  EXPECT_FALSE(reader->isFinishReadSample());
  EXPECT_TRUE(reader->readNextSample(left, right));
  EXPECT_TRUE(reader->isFinishReadSample());
  EXPECT_FALSE(reader->readNextSample(left, right));
  EXPECT_EQ(left, -2.0F);
  EXPECT_EQ(right, -2.0F);
}

TEST(WaveFileReaderTest, OneFrameCanBeDecodedFromAnywhere) {
  const auto reader = WaveFileReader::readFromData(recording());
  float left = 9.0F;
  float right = 9.0F;
  reader->getSample(left, right, ByteBuilder().s24(-8388608).s24(4194304).get());
  EXPECT_EQ(left, -1.0F);
  EXPECT_EQ(right, 0.5F);
}

TEST(WaveFileReaderTest, ACopySharesTheImageAndReadsOnItsOwn) {
  const auto reader = WaveFileReader::readFromData(recording());
  reader->setIsBoMSFormat(true);
  reader->beginReadSample();
  WaveFileReader copy = *reader;
  float left = 0.0F;
  float right = 0.0F;
  EXPECT_TRUE(copy.readNextSample(left, right));
  EXPECT_EQ(reader->readDataIdx() + 6, copy.readDataIdx());
  EXPECT_EQ(copy.raw().bytes, reader->raw().bytes);
  EXPECT_TRUE(copy.isBoMSFormat());
  reader->dispose();
  EXPECT_TRUE(copy.readNextSample(left, right));
  EXPECT_EQ(left, 0.25F);
}

TEST(WaveFileReaderTest, ADisposedReaderKeepsItsIndexOnly) {
  const auto reader = WaveFileReader::readFromData(recording());
  const auto bext = *reader->getBextChunk();
  reader->dispose();
  EXPECT_EQ(reader->raw().bytes, nullptr);
  EXPECT_EQ(reader->raw().length, 0U);
  EXPECT_EQ(reader->image(), nullptr);
  EXPECT_EQ(reader->chunks().size(), 3U);
  EXPECT_EQ(reader->header().BitsPerSample, 24);
  EXPECT_TRUE(reader->isFinishReadSample());
  EXPECT_EQ(reader->getChunkData(bext).length, 0U);
  reader->dispose();
}

TEST(WaveFileReaderTest, DurationIsThatOfTheFramesThatCanBeRead) {
  const auto seconds = [](const Bytes& file) {
    return WaveFileReader::readFromData(file)->durationSeconds();
  };
  EXPECT_EQ(seconds(WaveBytes().format24().data(Bytes(6 * 12000)).get()), 0.25);
  EXPECT_EQ(seconds(WaveBytes().format24().data(Bytes(6 * 12000 + 5)).get()), 0.25);
  EXPECT_EQ(seconds(WaveBytes().format24().chunk("data", 99999999, Bytes(6 * 48000)).get()), 1.0);
  EXPECT_EQ(seconds(WaveBytes().format24().data({}).chunk("LIST", Bytes(4)).get()), 0.0);
  EXPECT_EQ(seconds(WaveBytes().format(1, 2, 0, 24).data(Bytes(600)).get()), 0.0);
  EXPECT_EQ(seconds(WaveBytes().format(1, 0, 48000, 24).data(Bytes(600)).get()), 0.0);
}

TEST(WaveFileReaderTest, AnOpenedFileIsIndexedButNotHeld) {
  const TemporaryFolder folder;
  std::string whyNot = "?";
  const auto reader = WaveFileReader::openFile(folder.file("a.wav", recording()), whyNot);
  ASSERT_NE(reader, nullptr);
  EXPECT_EQ(whyNot, "");
  EXPECT_TRUE(reader->isValidFile());
  EXPECT_EQ(reader->chunks().size(), 3U);
  EXPECT_EQ(reader->image()->heldFrom(0), 0U);
  EXPECT_EQ(reader->raw().bytes, nullptr);
  const WavArray data = reader->getChunkData(*reader->getBextChunk());
  EXPECT_EQ(WaveFileReader::DecodeAsString(data.bytes + 256, 32), "TARN J4");
}

TEST(WaveFileReaderTest, AReaderApartHoldsTheFileAndNoImageOfTheOther) {
  const TemporaryFolder folder;
  std::string whyNot;
  auto reader = WaveFileReader::openFile(folder.file("a.wav", recording()), whyNot);
  ASSERT_NE(reader, nullptr) << whyNot;
  reader->setIsBoMSFormat(true);
  const std::weak_ptr<WaveImage> image = reader->image();
  WaveFileReader apart = reader->apart();
  reader.reset();
  EXPECT_TRUE(image.expired());
  EXPECT_TRUE(apart.isBoMSFormat());
  EXPECT_EQ(apart.frameCount(), 2U);
  apart.waitForMedium();
  apart.beginReadSample();
  float left = 0;
  float right = 0;
  ASSERT_TRUE(apart.readNextSample(left, right));
  EXPECT_EQ(left, 0.5F);
  EXPECT_EQ(right, -0.5F);
}

TEST(WaveFileReaderTest, AReaderApartSharesBytesInMemory) {
  const auto reader = WaveFileReader::readFromData(recording());
  EXPECT_EQ(reader->apart().image(), reader->image());
}

TEST(WaveFileReaderTest, AnOpenedFileThatIsNoWaveIsAReaderOfAnInvalidFile) {
  const TemporaryFolder folder;
  std::string whyNot;
  const auto reader = WaveFileReader::openFile(folder.file("a.wav", Bytes(100)), whyNot);
  ASSERT_NE(reader, nullptr);
  EXPECT_FALSE(reader->isValidFile());
}

TEST(WaveFileReaderTest, AFileThatCannotBeOpenedGivesTheReason) {
  const TemporaryFolder folder;
  std::string whyNot;
  EXPECT_EQ(WaveFileReader::openFile(folder.path() / "none.wav", whyNot), nullptr);
  EXPECT_EQ(whyNot, textOf(std::errc::no_such_file_or_directory));
  EXPECT_EQ(WaveFileReader::openFile(folder.path(), whyNot), nullptr);
  EXPECT_EQ(whyNot, textOf(std::errc::is_a_directory));
}

TEST(WaveFileReaderTest, APipeIsRefusedWithoutWaitingForIt) {
  const TemporaryFolder folder;
  const auto path = folder.path() / "pipe.wav";
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  std::string whyNot;
  EXPECT_EQ(WaveFileReader::openFile(path, whyNot), nullptr);
  EXPECT_NE(whyNot, "");
}

TEST(WaveFileReaderTest, FindsNothingToParseAfterDispose) {
  const auto reader =
      WaveFileReader::readFromData(WaveBytes().format24().recorderBext().data(Bytes(12)).get());
  reader->dispose();
  reader->parseWave();
  EXPECT_FALSE(reader->isValidFile());
  EXPECT_EQ(reader->frameCount(), 0U);
}
