// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Samples and levels of a file that is not in memory: what is at hand, and what is waited for, is
// what a reader over all bytes reads.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cmath>
#include <filesystem>
#include <latch>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "ImageFile.h"
#include "ReadMeter.h"
#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"
#include "wav/WaveFileReader.h"

namespace {

using Bytes = std::vector<std::byte>;
using Pair = std::array<std::uint32_t, 2>;  // bits of two floats: a NaN equals itself

constexpr std::uint64_t kRingBytes = FollowedBlocks::kMostBlocks * FollowedBlocks::kBlockBytes;
constexpr double kRate = 48000;

std::unique_ptr<WaveFileReader> atHand(const std::filesystem::path& path) {
  std::string whyNot;
  auto reader = WaveFileReader::openFile(path, whyNot);
  if (!reader) throw std::runtime_error(whyNot);
  return reader;
}

Bytes randomTake(std::mt19937& random, std::uint16_t channels, std::uint16_t bits,
                 std::size_t bytes) {
  std::vector<std::uint32_t> words(bytes / 4 + 1);
  for (std::uint32_t& word : words) word = static_cast<std::uint32_t>(random());
  const auto all = std::as_bytes(std::span(words)).first(bytes);
  const Bytes samples(all.begin(), all.end());
  const std::uint16_t tag = bits == 32 && random() % 2 == 0 ? 3 : 1;
  return WaveBytes().recorderBext().format(tag, channels, 48000, bits).data(samples).get();
}

// 0 to 1.
double part(std::mt19937& random) {
  return static_cast<double>(random()) / static_cast<double>(std::mt19937::max());
}

Pair levels(WaveFileReader& reader, double from, double to) {
  float left = 0;
  float right = 0;
  reader.getSampleLevelMeterFrom(from, to, left, right, 3.0, 77.0);
  return {std::bit_cast<std::uint32_t>(left), std::bit_cast<std::uint32_t>(right)};
}

// Until the stretch is at hand; the time limit of the test is the only one.
void follow(WaveFileReader& reader, double from, double to) {
  while (!reader.follow(from, to)) std::this_thread::yield();
}

// 32-bit floats that tell their place: left n, right -n.
Bytes numberedTake(std::size_t frameCount) {
  std::vector<float> samples;
  for (std::size_t n = 0; n < frameCount; ++n) {
    samples.insert(samples.end(), {static_cast<float>(n), -static_cast<float>(n)});
  }
  return WaveBytes().formatFloat().data(WaveBytes::samplesFloat(samples)).get();
}

class SamplesAtHandTest : public testing::Test {
 protected:
  void SetUp() override { ReadMeter::reset(); }
  void TearDown() override { ReadMeter::letGo(); }

  TemporaryFolder _folder;
};

}  // namespace

TEST_F(SamplesAtHandTest, NothingIsReadThatIsNotAtHand) {
  const auto reader = atHand(_folder.file("a.wav", numberedTake(1000)));
  SampleCursor& cursor = reader->cursor();
  std::array<float, 20> block{};
  float left = 0;
  float right = 0;
  ReadMeter::reset();
  cursor.beginReadSample();
  EXPECT_EQ(cursor.framesLeft(), 1000U);
  EXPECT_FALSE(cursor.readNextSample(left, right));
  EXPECT_EQ(left, -2.0F);
  EXPECT_EQ(right, -2.0F);
  EXPECT_EQ(cursor.readFrames(block), 0U);
  EXPECT_EQ(ReadMeter::reads(), 0U);
  follow(*reader, 0, 1);
  EXPECT_EQ(cursor.readFrames(block), 10U);
  EXPECT_TRUE(cursor.readNextSample(left, right));
  EXPECT_EQ(left, 10.0F);
  EXPECT_EQ(right, -10.0F);
}

TEST_F(SamplesAtHandTest, ReadingStopsWhereNothingIsAtHand) {
  constexpr std::size_t kFrames = 1'000'000;
  const auto reader = atHand(_folder.file("a.wav", numberedTake(kFrames)));
  const std::uint64_t whole = (kRingBytes - 44) / 8;
  ASSERT_TRUE(comesToHand(*reader->image(), 0, kRingBytes));
  SampleCursor cursor = reader->cursor();
  std::vector<float> block(2 * kFrames);
  cursor.beginReadSample();
  ASSERT_EQ(cursor.readFrames(block), whole);
  EXPECT_EQ(block[2 * whole - 1], -static_cast<float>(whole - 1));
  EXPECT_FALSE(cursor.isFinishReadSample());
  ASSERT_TRUE(comesToHand(*reader->image(), kRingBytes, kRingBytes + 1000));
  EXPECT_EQ(cursor.readFrames(std::span(block).first(10)), 5U);
  EXPECT_EQ(block[0], static_cast<float>(whole));
}

TEST_F(SamplesAtHandTest, AFrameWaitsForItsFurthestChannel) {
  std::mt19937 random(1);
  const auto reader = atHand(_folder.file("a.wav", randomTake(random, 3, 24, kRingBytes + 9000)));
  ASSERT_TRUE(comesToHand(*reader->image(), 0, kRingBytes));
  SampleCursor cursor = reader->cursor();
  cursor.beginReadSample();
  const std::uint64_t start = cursor.readDataIdx();
  std::vector<float> block(kRingBytes);
  const std::uint64_t count = cursor.readFrames(block);
  // Frames are 9 bytes apart, and the third channel of each ends after 12.
  EXPECT_LE(start + 9 * (count - 1) + 12, kRingBytes);
  EXPECT_GT(start + 9 * count + 12, kRingBytes);
}

TEST_F(SamplesAtHandTest, LevelsAreThoseOfTheWholeFileInMemory) {
  std::mt19937 random(7);
  for (const std::uint16_t channels : std::to_array<std::uint16_t>({1, 2, 3, 8})) {
    for (const std::uint16_t bits : std::to_array<std::uint16_t>({16, 24, 32})) {
      const Bytes file = randomTake(random, channels, bits, kRingBytes + 500'000 + random() % 100);
      const auto inMemory = WaveFileReader::readFromData(file);
      const auto onDisk = atHand(_folder.file("a.wav", file));
      inMemory->setIsBoMSFormat(true);
      onDisk->setIsBoMSFormat(true);
      WaveFileReader waiting = *onDisk;
      waiting.waitForMedium();
      const double duration = inMemory->durationSeconds();
      EXPECT_EQ(onDisk->durationSeconds(), duration);
      for (int i = 0; i < 40; ++i) {
        const double from = 1.05 * duration * part(random);
        const double to = from + (i % 2 == 0 ? 1.0 / 30.0 : 0.3 * part(random));
        const Pair wanted = levels(*inMemory, from, to);
        follow(*onDisk, from, to);
        ASSERT_EQ(levels(*onDisk, from, to), wanted) << channels << " " << bits << " " << from;
        ASSERT_EQ(levels(waiting, from, to), wanted) << channels << " " << bits << " " << from;
        ASSERT_EQ(onDisk->readDataIdx(), inMemory->readDataIdx());
      }
      ASSERT_EQ(levels(waiting, 0, 2 * duration), levels(*inMemory, 0, 2 * duration));
    }
  }
}

TEST_F(SamplesAtHandTest, SomethingNotAtHandMakesAStretchUnknown) {
  const auto reader = atHand(_folder.file("a.wav", numberedTake(1'000'000)));
  follow(*reader, 0, 1.0 / 30);
  ReadMeter::hang();  // or the worker could be done between the two steps of `follow`
  EXPECT_FALSE(reader->follow(15.0, 15.1));
  EXPECT_TRUE(reader->follow(100.0, 100.1)) << "there is nothing to wait for";
  reader->dispose();
  EXPECT_TRUE(reader->follow(0, 1));
}

TEST_F(SamplesAtHandTest, AStretchLargerThanWhatIsHeldIsNeverAtHand) {
  const auto reader = atHand(_folder.file("a.wav", numberedTake(1'000'000)));
  ASSERT_TRUE(comesToHand(*reader->image(), 44, kRingBytes));
  EXPECT_TRUE(reader->follow(0, 10));
  EXPECT_FALSE(reader->follow(0, 11)) << "4.2 MB";
}

TEST_F(SamplesAtHandTest, WhoWaitsReadsEverything) {
  const Bytes file = numberedTake(100'000);
  const auto reader = atHand(_folder.file("a.wav", file));
  const auto inMemory = WaveFileReader::readFromData(file);
  reader->waitForMedium();
  reader->beginReadSample();
  inMemory->beginReadSample();
  float left = 0;
  float right = 0;
  float wantedLeft = 0;
  float wantedRight = 0;
  while (inMemory->readNextSample(wantedLeft, wantedRight)) {
    ASSERT_TRUE(reader->readNextSample(left, right));
    ASSERT_EQ(left, wantedLeft);
    ASSERT_EQ(right, wantedRight);
  }
  EXPECT_FALSE(reader->readNextSample(left, right));
  EXPECT_LE(ReadMeter::bytes(), file.size() + 10'000) << "each part is read once";
}

TEST_F(SamplesAtHandTest, ACancelEndsTheReading) {
  const auto reader = atHand(_folder.file("a.wav", numberedTake(100'000)));
  std::atomic<bool> cancel{false};
  reader->waitForMedium(&cancel);
  reader->beginReadSample();
  std::vector<float> block(100'000);
  EXPECT_EQ(reader->cursor().readFrames(block), 50'000U);
  cancel = true;
  EXPECT_LT(reader->cursor().readFrames(block), 10'000U) << "no more than was copied before";
}

TEST_F(SamplesAtHandTest, FramesThatReachFarAreReadInTwoPlaces) {
  // The last of 1000 channels begins 1.5 MB after its frame of 3000 bytes.
  std::mt19937 random(3);
  const Bytes file = randomTake(random, 1000, 24, 1'800'000);
  const auto inMemory = WaveFileReader::readFromData(file);
  const auto reader = atHand(_folder.file("a.wav", file));
  reader->waitForMedium();
  std::vector<float> wanted(1200);
  std::vector<float> found(1200);
  inMemory->beginReadSample();
  reader->beginReadSample();
  ReadMeter::reset();
  EXPECT_EQ(inMemory->cursor().readFrames(wanted), 600U);
  EXPECT_EQ(reader->cursor().readFrames(found), 600U);
  EXPECT_EQ(found, wanted);
  EXPECT_LE(ReadMeter::bytes(), 2 * 3 * 600U);
}

// The meters of a take that plays while an export reads it.
TEST_F(SamplesAtHandTest, MetersFollowWhileOthersRead) {
  constexpr std::size_t kFrames = 1'000'000;
  const auto reader = atHand(_folder.file("a.wav", numberedTake(kFrames)));
  std::atomic<std::size_t> right{0};
  {
    std::latch start(3);
    std::vector<std::jthread> threads;
    for (int number = 0; number < 2; ++number) {
      threads.emplace_back([&] {
        WaveFileReader own = *reader;
        own.waitForMedium();
        own.beginReadSample();
        std::vector<float> block(9998);
        std::size_t n = 0;
        start.arrive_and_wait();
        while (const std::uint64_t count = own.cursor().readFrames(block)) {
          if (block[0] != static_cast<float>(n)) return;
          n += count;
        }
        if (n == kFrames) ++right;
      });
    }
    start.arrive_and_wait();
    WaveFileReader meters = *reader;
    for (int tick = 0; tick < 100; ++tick) {
      const double from = tick * 0.2;
      follow(meters, from, from + 0.1);
      float left = 0;
      float other = 0;
      meters.getSampleLevelMeterFrom(from, from + 0.1, left, other, 0.0, 0.0);
      ASSERT_EQ(left, static_cast<float>(std::ceil((from + 0.1) * kRate - 1e-6) - 1)) << tick;
    }
  }
  EXPECT_EQ(right, 2U);
}
