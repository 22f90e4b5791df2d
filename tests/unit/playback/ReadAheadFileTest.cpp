// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/ReadAheadFile.h"

#include <gmock/gmock.h>
#include <sys/syscall.h>

#include <QCoreApplication>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <thread>
#include <vector>

#include "ReadAheadFixture.h"
#include "playback/AQPlayer.h"
#include "playback/WavePlayer.h"
#include "playback/wave/WaveAudioFile.h"
#include "support/Confinement.h"
#include "support/EventLoop.h"
#include "support/RefusedMemory.h"
#include "support/TemporaryFolder.h"

namespace {

using ReadAheadFileTest = ReadAheadFixture;

TEST_F(ReadAheadFileTest, HasTheFramesOfTheFile) {
  use24BitFile(500'001);
  const auto file = opened();
  EXPECT_EQ(file->frameCount(), 500'001U);
  EXPECT_EQ(file->format().sampleType, SampleType::Signed24);
  std::uint64_t at = 0;
  for (std::uint32_t step = 1; at < 500'001; step = step * 7 % 9973) {
    const AudioFile::Read got = read(*file, at, step);
    ASSERT_EQ(got.frames, std::min<std::uint64_t>(step, 500'001 - at));
    ASSERT_EQ(buffer, frames(at, at + got.frames)) << at;
    at += got.frames;
  }
  EXPECT_EQ(read(*file, at).frames, 0U);
  EXPECT_EQ(file->failure(), "");
}

TEST_F(ReadAheadFileTest, ReadsFromWhereverItIsAsked) {
  useFloatFile(100'000);
  const auto file = opened();
  for (const std::uint64_t at : {0U, 4800U, 50'000U, 49'999U, 99'999U, 1U, 95'200U, 0U}) {
    const std::uint64_t end = std::min<std::uint64_t>(at + kBuffer, 100'000);
    ASSERT_EQ(read(*file, at).frames, end - at);
    EXPECT_EQ(buffer, frames(at, end)) << at;
  }
  EXPECT_EQ(read(*file, 100'000).frames, 0U);
  EXPECT_EQ(read(*file, UINT64_MAX).frames, 0U);
}

TEST_F(ReadAheadFileTest, TellsWhatTheFileSaysAtItsEnd) {
  const TemporaryFolder folder;
  const auto wave = WaveBytes().format24().data(std::vector<std::byte>(std::size_t{6} * 480'000));
  const auto path = folder.file("x.wav", wave.get());
  ReadAheadFile file(std::make_unique<WaveAudioFile>());
  ASSERT_TRUE(file.open(path));
  format = file.format();
  std::filesystem::remove(path);
  EXPECT_EQ(read(file, 480'000).error, 0) << "nobody has read up to here";
  for (int i = 0; i < 2; ++i) {
    std::uint64_t at = 0;
    for (AudioFile::Read got{1}; got.frames > 0; at += got.frames) {
      ASSERT_EQ((got = read(file, at)).error, at < 480'000 ? 0 : ENOENT);
    }
    EXPECT_EQ(at, 480'000U);
    EXPECT_EQ(file.failure(), "The file has been deleted");
  }
}

TEST_F(ReadAheadFileTest, IsTwoSecondsAheadAndMore) {
  useFloatFile(480'000);
  const auto file = opened();
  waitUntilRead(3 * kRate + kBlock);  // the last one may not have arrived yet
  medium.holdFrom(0);
  std::vector<std::byte> to(std::size_t{kBuffer} * 8);
  for (std::uint64_t at = 0; at < 3 * kRate; at += kBuffer) {
    ASSERT_FALSE(file->readFrames(at, kBuffer, to).isLate) << at;
  }
}

TEST_F(ReadAheadFileTest, ReadsNoFurtherThanItHolds) {
  useFloatFile(480'000);
  const auto file = opened();
  waitUntilRead(3 * kRate + kBlock);
  for (int i = 0; i < 1000; ++i) std::this_thread::yield();
  EXPECT_EQ(medium.framesRead(), 3 * kRate + kBlock);
}

// All of the blocks hold less together then than is wanted at once.
TEST_F(ReadAheadFileTest, GivesLessWhereABlockHasLittle) {
  useFloatFile(100'000);
  medium.giveAtMost(100);
  const auto file = opened();
  for (std::uint64_t at = 0; at < 100'000;) {
    const std::uint32_t got = read(*file, at).frames;
    ASSERT_GT(got, 0U) << at;
    ASSERT_EQ(buffer, frames(at, at + got));
    at += got;
  }
}

TEST_F(ReadAheadFileTest, IsLateWhileTheMediumHangsAndTellsWhenItHasCome) {
  useFloatFile(48'000);
  medium.holdFrom(5 * kBlock);
  const auto file = opened();
  int arrivals = 0;
  file->setArrived([&] { ++arrivals; });
  EXPECT_EQ(read(*file, 0, 4 * kBlock).frames, 4 * kBlock);
  std::vector<std::byte> to(std::size_t{2} * kBlock * 8);
  const AudioFile::Read late = file->readFrames(std::uint64_t{4} * kBlock, 2 * kBlock, to);
  EXPECT_TRUE(late.isLate);
  EXPECT_EQ(late.frames, 0U);
  EXPECT_EQ(late.error, 0);
  QCoreApplication::processEvents();
  EXPECT_EQ(arrivals, 0);
  medium.release();
  ASSERT_TRUE(EventLoop::runUntil([&] { return arrivals > 0; }));
  EXPECT_EQ(file->readFrames(std::uint64_t{4} * kBlock, 2 * kBlock, to).frames, 2 * kBlock);
  EXPECT_EQ(to, frames(std::uint64_t{4} * kBlock, std::uint64_t{6} * kBlock));
}

TEST_F(ReadAheadFileTest, WhatWasReadForAnotherSeekIsThrownAway) {
  useFloatFile(480'000);
  const auto file = opened();
  waitUntilRead(3 * kRate + kBlock);
  medium.holdFrom(0);
  std::vector<std::byte> to(std::size_t{kBuffer} * 8);
  EXPECT_TRUE(file->readFrames(300'000, kBuffer, to).isLate);
  medium.waitUntilHeld();
  EXPECT_TRUE(file->readFrames(400'000, kBuffer, to).isLate);
  medium.release();
  EXPECT_EQ(read(*file, 400'000).frames, kBuffer);
  EXPECT_EQ(buffer, frames(400'000, 400'000 + kBuffer));
}

TEST_F(ReadAheadFileTest, AFailureComesAfterTheFramesBeforeItAndIsTriedAgain) {
  useFloatFile(48'000);
  badFrame = 4 * kBlock + 5;
  const auto file = opened();
  EXPECT_EQ(read(*file, 0, 4 * kBlock).frames, 4 * kBlock);
  EXPECT_EQ(file->failure(), "");
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(read(*file, std::uint64_t{4} * kBlock).error, 7);
    EXPECT_EQ(file->failure(), "The memory is bad");
  }
  EXPECT_EQ(read(*file, std::uint64_t{5} * kBlock).frames, kBuffer);
}

TEST_F(ReadAheadFileTest, AFileThatFailsFromTheFirstFrameOnOpensAllTheSame) {
  useFloatFile(48'000);
  badFrame = 0;
  const auto file = opened();
  EXPECT_EQ(read(*file, 0).error, 7);
}

TEST_F(ReadAheadFileTest, OfOddFormatsBuffersComeAsLargeAsTheyCanBeHeld) {
  packets.assign(100, std::byte{1});
  format = {8, 0, 1, 1, 1, 8, SampleType::Unsigned8};  // eight frames a second
  const auto slow = opened();
  EXPECT_GE(read(*slow, 0, 100).frames, 24U);
  packets.assign(std::size_t{20} << 20, std::byte{1});
  format = {4e9, 0, 1 << 20, 1, 1, 8, SampleType::Unsigned8};  // a mebibyte a frame
  const auto wide = opened();
  for (std::uint64_t at = 0; at < 20; ++at) EXPECT_EQ(read(*wide, at, 1).frames, 1U) << at;
}

TEST_F(ReadAheadFileTest, AnEmptyFileHasNothingToReadAhead) {
  useFloatFile(0);
  const auto file = opened();
  EXPECT_EQ(read(*file, 0).frames, 0U);
  EXPECT_EQ(read(*file, 0).error, 0);
}

TEST_F(ReadAheadFileTest, NobodyWaitsForAMediumThatHangs) {
  useFloatFile(480'000);
  auto file = opened();
  waitUntilRead(3 * kRate + kBlock);
  medium.holdFrom(0);
  std::vector<std::byte> to(std::size_t{kBuffer} * 8);
  EXPECT_TRUE(file->readFrames(300'000, kBuffer, to).isLate);
  medium.waitUntilHeld();
  file.reset();
  medium.release();
  medium.waitUntilClosed();  // by the worker
}

TEST_F(ReadAheadFileTest, WithoutAThreadItDoesNotOpen) {
  useFloatFile(48'000);
  const int status = Confinement::run([this] {
    if (!Confinement::failSystemCall(SYS_clone3, EAGAIN)) return 1;
    if (!Confinement::failSystemCall(SYS_clone, EAGAIN)) return 2;
    const auto file = make();
    if (file->open("x")) return 3;
    if (file->frameCount() != 0 || file->format().bytesPerPacket != 0) return 4;
    return file->failure() == "Resource temporarily unavailable" ? 0 : 5;
  });
  EXPECT_EQ(status, 0);
}

#ifndef MIXDECK_SANITIZED  // which has a heap of its own
TEST_F(ReadAheadFileTest, WhereMemoryRunsOutItDoesNotOpen) {
  useFloatFile(480'000);
  const auto file = make();
  constexpr std::size_t kNoBlocks = std::size_t{1} << 20;
  const RefusedMemory refused(kNoBlocks);
  std::thread([&] { EXPECT_FALSE(file->open("x")); }).join();
  EXPECT_EQ(RefusedMemory::count(), 1);
  EXPECT_EQ(file->failure(), "There is not enough memory");
  EXPECT_EQ(file->frameCount(), 0U);
}
#endif

TEST_F(ReadAheadFileTest, APlayerPlaysItWhole) {
  use24BitFile(100'000);
  usePlayers();
  AQPlayer player("x");
  player.play(false);
  EXPECT_TRUE(EventLoop::runUntil([&] {
    clock.advance(50);
    return finishes() > 0;
  }));
  EXPECT_EQ(output->played(), ramp(0, 100'000));
}

TEST_F(ReadAheadFileTest, ALateBlockIsSilenceAndAnUnderrunAndNoEnd) {
  useFloatFile(96'000);
  usePlayers();
  medium.holdFrom(8 * kBlock);
  AQPlayer player("x");
  player.play(false);
  medium.waitUntilHeld();
  clock.advance(30'000);
  EXPECT_EQ(player.underruns(), 1U);
  EXPECT_EQ(finishes(), 0U);
  EXPECT_FALSE(player.getIsDone());
  EXPECT_EQ(output->played(), ramp(0, 48'000));
  EXPECT_EQ(player.currentTime(), 1000.0) << "silence is no time of the file";
  medium.release();
  EXPECT_TRUE(EventLoop::runUntil([&] {
    clock.advance(50);
    return finishes() > 0;
  }));
  EXPECT_EQ(output->played(), ramp(0, 96'000));
}

TEST_F(ReadAheadFileTest, ASeekToWhereTheMediumHangsGoesOnWhenItHasCome) {
  useFloatFile(480'000);
  usePlayers();
  AQPlayer player("x");
  player.play(false);
  waitUntilRead(3 * kRate);
  clock.advance(100);
  medium.holdFrom(0);
  player.setPosition(0.75, true);
  player.setPosition(0.5, true);
  clock.advance(1000);
  EXPECT_EQ(player.currentTime(), 5000.0);
  EXPECT_FALSE(player.getIsDone());
  const std::size_t before = output->played().size();
  medium.release();
  EXPECT_TRUE(EventLoop::runUntil([&] {
    clock.advance(50);
    return output->played().size() >= before + 2 * std::size_t{kRate};
  }));
  const std::vector<float> after(output->played().begin() + static_cast<std::ptrdiff_t>(before),
                                 output->played().end());
  EXPECT_EQ(after, ramp(240'000, 240'000 + after.size() / 2));
}

TEST_F(ReadAheadFileTest, AFailureWhileItIsPlayedEndsLikeTheEndOfTheFile) {
  useFloatFile(96'000);
  usePlayers();
  badFrame = 8 * kBlock;
  medium.holdFrom(8 * kBlock);
  AQPlayer player("x");
  player.play(false);
  medium.waitUntilHeld();
  clock.advance(2000);
  EXPECT_EQ(player.readFailure(), "");
  medium.release();
  EXPECT_TRUE(EventLoop::runUntil([&] {
    clock.advance(50);
    return finishes() > 0;
  }));
  EXPECT_THAT(log.get(), testing::Contains("AudioFileReadPackets failed: 7"));
  EXPECT_EQ(player.readFailure(), "The memory is bad");
  EXPECT_EQ(output->played(), ramp(0, 48'000));
}

TEST_F(ReadAheadFileTest, APlayerThatGoesWaitsForNothing) {
  useFloatFile(480'000);
  usePlayers();
  auto player = std::make_unique<AQPlayer>("x");
  player->play(false);
  waitUntilRead(3 * kRate);
  medium.holdFrom(0);
  player->setPosition(0.75, true);
  medium.waitUntilHeld();
  player.reset();
  QCoreApplication::processEvents();
}

// What is ahead is as it was read: gain and width are put to it when a buffer is filled.
TEST_F(ReadAheadFileTest, GainIsHeardInTheNextBufferThatIsFilled) {
  format = kFloat;
  packets = WaveBytes::samplesFloat(std::vector<float>(960'000, 0.5F));
  usePlayers();
  WavePlayer player("x");
  player.play();
  waitUntilRead(3 * kRate);
  clock.advance(1000);
  player.setGain(-120);
  clock.advance(400);
  EXPECT_LT(output->played().back(), 1e-5F);
  EXPECT_GT(output->played()[output->played().size() - 2 * std::size_t{kRate} * 4 / 10], 0.4F);
}

}  // namespace
