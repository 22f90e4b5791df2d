// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "PlainWave.h"
#include "RandomWave.h"
#include "support/TemporaryFolder.h"
#include "wav/WaveFileReader.h"

namespace {

std::uint32_t bits(float value) {
  return std::bit_cast<std::uint32_t>(value);
}

// Infinities decoded together make a NaN whose sign nobody promises.
bool isSameLevel(float got, float wanted) {
  return bits(got) == bits(wanted) || (std::isnan(got) && std::isnan(wanted));
}

void expectSameHeader(const WaveHeader& got, const WaveHeader& wanted) {
  EXPECT_EQ(got.ChunkID, wanted.ChunkID);
  EXPECT_EQ(got.ChunkSize, wanted.ChunkSize);
  EXPECT_EQ(got.Format, wanted.Format);
  EXPECT_EQ(got.Subchunk1ID, wanted.Subchunk1ID);
  EXPECT_EQ(got.Subchunk1Size, wanted.Subchunk1Size);
  EXPECT_EQ(got.AudioFormat, wanted.AudioFormat);
  EXPECT_EQ(got.NumChannels, wanted.NumChannels);
  EXPECT_EQ(got.SampleRate, wanted.SampleRate);
  EXPECT_EQ(got.ByteRate, wanted.ByteRate);
  EXPECT_EQ(got.BlockAlign, wanted.BlockAlign);
  EXPECT_EQ(got.BitsPerSample, wanted.BitsPerSample);
  EXPECT_EQ(got.dataChunkPosition, wanted.dataChunkPosition);
  EXPECT_EQ(got.dataChunkLength, wanted.dataChunkLength);
  EXPECT_EQ(got.dataChunkEnd, wanted.dataChunkEnd);
}

void expectSameChunks(const std::vector<ChunkInfo>& got, const std::vector<ChunkInfo>& wanted) {
  ASSERT_EQ(got.size(), wanted.size());
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    EXPECT_EQ(got[i].chunkID, wanted[i].chunkID) << "chunk " << i;
    EXPECT_EQ(got[i].chunkSize, wanted[i].chunkSize) << "chunk " << i;
    EXPECT_EQ(got[i].streamPos, wanted[i].streamPos) << "chunk " << i;
  }
}

void expectSameIndex(const WaveFileReader& got, const PlainWave& wanted) {
  EXPECT_EQ(got.isValidFile(), wanted.isValid);
  EXPECT_EQ(got.encoding(), wanted.encoding);
  EXPECT_EQ(got.whyInvalid().empty(), wanted.isValid);
  expectSameHeader(got.header(), wanted.header);
  expectSameChunks(got.chunks(), wanted.chunks);
}

void expectSameFramesOneByOne(WaveFileReader& reader, const std::vector<PlainWave::Frame>& wanted) {
  float left = 0.0F;
  float right = 0.0F;
  reader.beginReadSample();
  for (const PlainWave::Frame& frame : wanted) {
    ASSERT_FALSE(reader.isFinishReadSample());
    ASSERT_TRUE(reader.readNextSample(left, right));
    ASSERT_EQ(bits(left), bits(frame[0]));
    ASSERT_EQ(bits(right), bits(frame[1]));
  }
  EXPECT_TRUE(reader.isFinishReadSample());
  EXPECT_FALSE(reader.readNextSample(left, right));
  EXPECT_EQ(left, -2.0F);
  EXPECT_EQ(right, -2.0F);
}

void expectSameFramesInBlocks(SampleCursor& cursor, const std::vector<PlainWave::Frame>& wanted,
                              RandomWave& random) {
  std::vector<float> block(2 * 700);
  std::size_t at = 0;
  cursor.beginReadSample();
  EXPECT_EQ(cursor.framesLeft(), wanted.size());
  while (at < wanted.size()) {
    const std::size_t asked = 1 + random.upTo(699);
    const std::uint64_t count = cursor.readFrames(std::span(block).first(2 * asked));
    ASSERT_EQ(count, std::min(asked, wanted.size() - at));
    for (std::size_t i = 0; i < count; ++i, ++at) {
      ASSERT_EQ(bits(block[2 * i]), bits(wanted[at][0])) << "frame " << at;
      ASSERT_EQ(bits(block[2 * i + 1]), bits(wanted[at][1])) << "frame " << at;
    }
  }
  EXPECT_EQ(cursor.readFrames(block), 0U);
}

void expectSameChunkData(const WaveFileReader& reader, const std::vector<std::byte>& file) {
  for (const ChunkInfo& chunk : reader.chunks()) {
    const WavArray data = reader.getChunkData(chunk);
    const std::size_t start = std::min<std::size_t>(chunk.streamPos, file.size());
    ASSERT_EQ(data.length, std::min<std::size_t>(chunk.chunkSize, file.size() - start));
    const auto* const bytes = reinterpret_cast<const std::byte*>(data.bytes);
    ASSERT_TRUE(data.length == 0 || std::equal(bytes, bytes + data.length, &file[start]));
  }
}

void expectSameLevels(WaveFileReader& reader, const PlainWave& plain, RandomWave& random) {
  reader.setIsBoMSFormat(random.upTo(1) == 1);
  const double from = random.between(0.0, 0.2);
  const double to = std::max(0.0, from + random.between(-0.01, 0.2));
  const double gain = random.between(-24.0, 24.0);
  const double angle = random.between(0.0, 150.0);
  std::uint64_t position = reader.readDataIdx();
  const auto wanted = plain.level(from, to, gain, angle, reader.isBoMSFormat(), position);
  float left = 0.0F;
  float right = 0.0F;
  reader.getSampleLevelMeterFrom(from, to, left, right, gain, angle);
  EXPECT_TRUE(isSameLevel(left, wanted[0])) << left << " not " << wanted[0];
  EXPECT_TRUE(isSameLevel(right, wanted[1])) << right << " not " << wanted[1];
  EXPECT_EQ(reader.readDataIdx(), position);
}

}  // namespace

TEST(RandomLayoutsTest, AnIndexIsWhatThePlainWalkFinds) {
  int validFiles = 0;
  for (std::uint32_t seed = 0; seed < 3000 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const auto file = RandomWave(seed).file();
    const auto reader = WaveFileReader::readFromData(file);
    const PlainWave plain(file);
    expectSameIndex(*reader, plain);
    expectSameChunkData(*reader, file);
    validFiles += plain.isValid ? 1 : 0;
  }
  EXPECT_GT(validFiles, 500) << "too few layouts get as far as they should";
}

TEST(RandomLayoutsTest, AFileThatIsNotLoadedHasTheSameIndex) {
  const TemporaryFolder folder;
  for (std::uint32_t seed = 10000; seed < 10500 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const auto file = RandomWave(seed).file();
    std::string whyNot;
    const auto reader = WaveFileReader::openFile(folder.file("random.wav", file), whyNot);
    ASSERT_NE(reader, nullptr) << whyNot;
    EXPECT_EQ(reader->image()->heldFrom(0), 0U);
    expectSameIndex(*reader, PlainWave(file));
    expectSameChunkData(*reader, file);
  }
}

TEST(RandomLayoutsTest, SamplesAreWhatThePlainDecodingFinds) {
  std::size_t frameCount = 0;
  for (std::uint32_t seed = 20000; seed < 21000 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomWave random(seed);
    const auto file = seed % 2 == 0 ? random.file() : random.soundFile();
    const auto reader = WaveFileReader::readFromData(file);
    const auto wanted = PlainWave(file).frames();
    expectSameFramesOneByOne(*reader, wanted);
    expectSameFramesInBlocks(reader->cursor(), wanted, random);
    frameCount += wanted.size();
  }
  EXPECT_GT(frameCount, 100000U) << "too little sound in the layouts";
}

TEST(RandomLayoutsTest, LevelsAreWhatThePlainMeasurementFinds) {
  for (std::uint32_t seed = 30000; seed < 30500 && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomWave random(seed);
    const auto file = seed % 4 == 0 ? random.file() : random.soundFile();
    const auto reader = WaveFileReader::readFromData(file);
    const PlainWave plain(file);
    for (int i = 0; i < 5; ++i) expectSameLevels(*reader, plain, random);
  }
}
