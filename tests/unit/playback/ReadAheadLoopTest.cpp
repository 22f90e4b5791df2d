// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "ReadAheadFixture.h"
#include "playback/AQPlayer.h"
#include "playback/PlayingFile.h"
#include "support/EventLoop.h"

namespace {

using ReadAheadLoopTest = ReadAheadFixture;

TEST_F(ReadAheadLoopTest, TheTurnOfALoopIsAtHandBeforeItIsPlayed) {
  useFloatFile(96'000);
  medium.holdFrom(45'000);
  const auto file = opened();
  medium.waitUntilHeld();
  const FrameLoop loop{10'000, 40'000};
  file->setLoop(loop);
  medium.release();
  // Seven blocks, one that is thrown away, and once around the loop.
  waitUntilRead(8 * std::uint64_t{kBlock} + 30'000 + kBlock);
  medium.holdFrom(0);
  buffer.assign(std::size_t{kBuffer} * format.bytesPerPacket, std::byte{0});
  std::vector<std::byte> taken;
  std::vector<std::byte> wanted = frames(0, 40'000);
  for (const std::byte byte : frames(10'000, 40'000)) wanted.push_back(byte);
  for (std::uint64_t at = 0; taken.size() < wanted.size();) {
    const AudioFile::Read got = file->readFrames(at, kBuffer, buffer);
    ASSERT_FALSE(got.isLate) << at;
    ASSERT_GT(got.frames, 0U) << at;
    taken.insert(taken.end(), buffer.begin(),
                 buffer.begin() + std::ptrdiff_t{got.frames} * format.bytesPerPacket);
    at = FrameLoop::following(loop, at, got.frames);
  }
  EXPECT_EQ(taken, wanted);
}

// Of a fifth of a block.
TEST_F(ReadAheadLoopTest, OfAShortLoopNoLessIsAtHand) {
  constexpr std::uint64_t kAll = 25 * std::uint64_t{kBlock};
  useFloatFile(480'000);
  const auto file = opened();
  waitUntilRead(kAll);
  file->setLoop(FrameLoop{10'000, 11'200});  // two blocks stay
  constexpr std::uint64_t kTurns = kAll - 2 * std::uint64_t{kBlock};
  ASSERT_TRUE(EventLoop::runUntil([&] { return medium.framesRead() >= kAll + kTurns; }));
  medium.holdFrom(0);
  EXPECT_EQ(read(*file, 0, 11'200).frames, 11'200U);
  for (std::uint64_t turn = 0; turn < kTurns / 1200; ++turn) {
    buffer.assign(std::size_t{1200} * format.bytesPerPacket, std::byte{0});
    ASSERT_EQ(file->readFrames(10'000, 1200, buffer).frames, 1200U) << turn;
    ASSERT_EQ(buffer, frames(10'000, 11'200)) << turn;
  }
}

// A block and a half long. What it would say at its end is for who comes there.
TEST_F(ReadAheadLoopTest, OfAShortFileThatIsLoopedNoLessIsAtHand) {
  constexpr std::uint64_t kFrames = 9'000;
  useFloatFile(kFrames);
  badFrame = kFrames;
  const auto file = opened();
  waitUntilRead(kFrames);
  file->setLoop(FrameLoop{0, kFrames});
  constexpr std::uint64_t kAll = kFrames + 23 * std::uint64_t{kBlock};
  ASSERT_TRUE(EventLoop::runUntil([&] { return medium.framesRead() >= kAll; }));
  medium.holdFrom(0);
  for (std::uint64_t turn = 0; turn < kAll / kFrames; ++turn) {
    buffer.assign(kFrames * format.bytesPerPacket, std::byte{0});
    ASSERT_EQ(file->readFrames(0, kFrames, buffer).frames, kFrames) << turn;
    ASSERT_EQ(buffer, frames(0, kFrames)) << turn;
  }
}

TEST_F(ReadAheadLoopTest, ALoopKeepsWhatIsAtHandAndComesNextAllTheSame) {
  useFloatFile(480'000);
  const auto file = opened();
  waitUntilRead(3 * std::uint64_t{kRate});
  EXPECT_EQ(read(*file, 0, 1'000).frames, 1'000U);
  medium.holdFrom(0);
  file->setLoop(FrameLoop{500, 60'000});
  buffer.assign(std::size_t{kBuffer} * format.bytesPerPacket, std::byte{0});
  EXPECT_FALSE(file->readFrames(1'000, kBuffer, buffer).isLate);
  medium.release();
  EXPECT_EQ(read(*file, 1'000 + kBuffer, 54'200).frames, 54'200U);
  EXPECT_EQ(buffer, frames(1'000 + kBuffer, 60'000));
  EXPECT_EQ(read(*file, 500).frames, kBuffer);
  EXPECT_EQ(buffer, frames(500, 500 + kBuffer));
  file->setLoop(std::nullopt);
  EXPECT_EQ(read(*file, 500 + kBuffer, 100'000).frames, 100'000U);
  EXPECT_EQ(buffer, frames(500 + kBuffer, 100'500 + kBuffer));
}

TEST_F(ReadAheadLoopTest, PlaysALoopWithoutAGap) {
  useFloatFile(480'000);
  usePlayers();
  AQPlayer player("x");
  player.setLoop(FrameLoop{100'000, 103'000});
  player.play(false);
  player.setPosition(100'000.5 / 480'000, true);
  EXPECT_TRUE(EventLoop::runUntil([&] {
    if (PlayingFile::get().state().waiting.empty()) clock.advance(20);
    return output->played().size() >= 2 * std::size_t{kRate};
  }));
  std::vector<float> wanted;
  while (wanted.size() < 2 * std::size_t{kRate}) {
    const std::vector<float> round = ramp(100'000, 103'000);
    wanted.insert(wanted.end(), round.begin(), round.end());
  }
  wanted.resize(2 * std::size_t{kRate});
  std::vector<float> heard = output->played();
  heard.resize(wanted.size());
  EXPECT_EQ(heard, wanted);
  EXPECT_EQ(player.underruns(), 0U);
}

}  // namespace
