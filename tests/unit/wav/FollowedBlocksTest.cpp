// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/FollowedBlocks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <latch>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "ImageFile.h"
#include "ReadMeter.h"
#include "support/Confinement.h"
#include "support/RefusedMemory.h"
#include "support/TemporaryFolder.h"

namespace {

constexpr std::size_t kBlock = FollowedBlocks::kBlockBytes;
constexpr std::size_t kRing = FollowedBlocks::kMostBlocks * kBlock;
constexpr std::size_t kBig = 3 * kRing + 12345;

bool isNumbered(std::span<const std::byte> bytes, std::uint64_t firstOffset) {
  for (std::size_t i = 0; i < bytes.size(); i += 61) {
    if (bytes[i] != numberedByte(firstOffset + i)) return false;
  }
  return true;
}

/// A file of several times what is held.
class FollowedBlocksTest : public testing::Test {
 protected:
  void SetUp() override { ReadMeter::reset(); }
  void TearDown() override { ReadMeter::letGo(); }

  TemporaryFolder _folder;
  std::filesystem::path _path = _folder.file("a.wav", numberedBytes(kBig));
  std::shared_ptr<WaveImage> _image = imageOf(_path);
};

}  // namespace

TEST_F(FollowedBlocksTest, HoldWhatFollowsTheWish) {
  for (const std::size_t offset :
       {std::size_t{0}, std::size_t{1}, kBlock - 1, kBlock, kRing, kRing + 7, 5 * kBlock}) {
    const std::size_t end = (offset / kBlock) * kBlock + kRing;
    ASSERT_TRUE(comesToHand(*_image, offset, end)) << offset;
    EXPECT_EQ(_image->heldFrom(offset), end - offset) << offset;
    EXPECT_EQ(heldAt(*_image, offset, end - offset + 1), numberedBytes(end - offset, offset));
  }
}

TEST_F(FollowedBlocksTest, HoldTheFileUpToItsEnd) {
  for (const std::size_t offset : {kBig - 1, kBig - 12345, kBig - kBlock, kBig - kRing + kBlock}) {
    ASSERT_TRUE(comesToHand(*_image, offset, kBig)) << offset;
    EXPECT_EQ(heldAt(*_image, offset, kBig), numberedBytes(kBig - offset, offset));
  }
}

TEST_F(FollowedBlocksTest, NothingFollowsTheEnd) {
  ASSERT_TRUE(comesToHand(*_image, 0, kRing));
  ReadMeter::reset();
  for (const std::uint64_t offset : {std::uint64_t{kBig}, ~std::uint64_t{0}}) {
    _image->follow(offset);
    EXPECT_EQ(_image->heldFrom(offset), 0U);
    EXPECT_TRUE(heldAt(*_image, offset, 10).empty());
  }
  EXPECT_EQ(ReadMeter::reads(), 0U);
  EXPECT_EQ(_image->heldFrom(0), kRing) << "the wish from before stays";
}

TEST_F(FollowedBlocksTest, ReadEachPartOnceOnTheWay) {
  for (std::size_t offset = 0; offset < kBig; offset += 100'000) {
    ASSERT_TRUE(comesToHand(*_image, offset, std::min(offset + 200'000, kBig)));
  }
  ASSERT_TRUE(comesToHand(*_image, kBig - 1, kBig));
  EXPECT_EQ(ReadMeter::bytes(), kBig);
}

TEST_F(FollowedBlocksTest, ReadNoFurtherThanTheyHold) {
  ASSERT_TRUE(comesToHand(*_image, 0, kRing));
  _image->follow(100);
  ASSERT_TRUE(comesToHand(*_image, kBlock, kBlock + kRing));
  EXPECT_EQ(ReadMeter::bytes(), kRing + kBlock);
}

TEST_F(FollowedBlocksTest, AnImageThatIsOnlyReadIsNotReadAhead) {
  std::vector<std::byte> part(1000);
  EXPECT_EQ(_image->readAt(kBlock, part), 1000U);
  EXPECT_EQ(_image->heldFrom(kBlock), 0U);
  EXPECT_EQ(ReadMeter::bytes(), 1000U);
}

TEST_F(FollowedBlocksTest, AFailureIsNotTriedAgainForTheSameWish) {
  makeUnreadable(_path);
  EXPECT_FALSE(comesToHand(*_image, 0, 1));
  for (int i = 0; i < 100; ++i) _image->follow(static_cast<std::uint64_t>(i));
  EXPECT_EQ(ReadMeter::reads(), 1U);
  _image->follow(kBlock);
  while (ReadMeter::reads() < 2) std::this_thread::yield();
}

TEST_F(FollowedBlocksTest, AfterARestAFailureIsForgottenAndTriedAgain) {
  makeUnreadable(_path);
  EXPECT_FALSE(comesToHand(*_image, 0, 1));
  while (_image->followFailure().empty()) std::this_thread::yield();
  makeReadable(_path);
  _image->abandon();
  EXPECT_EQ(_image->followFailure(), "");
  _image->follow(0);
  while (_image->heldFrom(0) < kRing) std::this_thread::yield();
}

TEST_F(FollowedBlocksTest, AFailureStandsUntilAllThatIsWishedForIsAtHand) {
  makeUnreadable(_path);
  _image->follow(0);
  while (_image->followFailure().empty()) std::this_thread::yield();
  makeReadable(_path);
  _image->follow(kBlock);
  while (!_image->followFailure().empty()) std::this_thread::yield();
  EXPECT_EQ(_image->heldFrom(kBlock), kRing);
}

TEST_F(FollowedBlocksTest, AMediumThatHangsHoldsNobody) {
  ReadMeter::hang();
  _image->follow(0);
  ReadMeter::waitUntilHanging();
  _image->follow(kRing);
  EXPECT_EQ(_image->heldFrom(0), 0U);
  EXPECT_TRUE(heldAt(*_image, 0, 10).empty());
  EXPECT_EQ(_image->failure(), "");
  _image->abandon();
  _image.reset();
  EXPECT_TRUE(isOpen(_path)) << "the worker has it";
  ReadMeter::letGo();
  while (isOpen(_path)) std::this_thread::yield();
}

TEST_F(FollowedBlocksTest, AfterAHangOnlyTheLastWishIsFollowed) {
  ReadMeter::hang();
  _image->follow(0);
  ReadMeter::waitUntilHanging();
  for (std::size_t offset = kBlock; offset <= 2 * kRing; offset += kBlock) _image->follow(offset);
  ReadMeter::letGo();
  ASSERT_TRUE(comesToHand(*_image, 2 * kRing, 3 * kRing));
  EXPECT_LE(ReadMeter::bytes(), kBlock + kRing);
}

TEST_F(FollowedBlocksTest, AnImageThatNobodyHoldsIsClosed) {
  ASSERT_TRUE(comesToHand(*_image, 0, kRing));
  _image.reset();
  while (isOpen(_path)) std::this_thread::yield();
}

TEST_F(FollowedBlocksTest, AnImageThatWasNeverFollowedIsClosedAtOnce) {
  _image.reset();
  EXPECT_FALSE(isOpen(_path));
}

#ifndef MIXDECK_SANITIZED  // which has a heap of its own
TEST_F(FollowedBlocksTest, WhereMemoryRunsOutItSaysSoAndTriesAgain) {
  {
    const RefusedMemory refused(kBlock);
    std::thread([this] { _image->follow(0); }).join();
    EXPECT_EQ(RefusedMemory::count(), 1);
    EXPECT_EQ(_image->followFailure(), "There is not enough memory");
    EXPECT_EQ(_image->failure(), "") << "the file can be read";
    EXPECT_EQ(_image->heldFrom(0), 0U);
  }
  ASSERT_TRUE(comesToHand(*_image, kBlock, kBlock + kRing));
  EXPECT_EQ(_image->followFailure(), "");
}

// The thread sanitizer starts none after a fork.
TEST_F(FollowedBlocksTest, WithoutAThreadItSaysSoAndTriesAgain) {
  const int status = Confinement::run([this] {
    if (!Confinement::refuseThreads()) return 1;
    _image->follow(0);
    if (_image->followFailure() != "Resource temporarily unavailable") return 2;
    if (!_image->failure().empty()) return 3;
    if (_image->heldFrom(0) != 0) return 4;
    if (!Confinement::allowThreads()) return 5;
    if (!comesToHand(*_image, kBlock, kBlock + kRing)) return 6;
    return _image->followFailure().empty() ? 0 : 7;
  });
  EXPECT_EQ(status, 0);
}
#endif

// One thread jumps about in the file; what others find at hand anywhere is right.
TEST_F(FollowedBlocksTest, WhatIsAtHandIsRightWhileTheWishJumps) {
  constexpr int kJumps = 300;
  constexpr std::size_t kReaders = 3;
  std::atomic<bool> isOver{false};
  std::atomic<std::size_t> wrong{0};
  std::atomic<std::size_t> found{0};
  std::latch start(kReaders + 1);
  std::vector<std::jthread> readers;
  for (std::size_t number = 0; number < kReaders; ++number) {
    readers.emplace_back([&, number] {
      std::mt19937 random(static_cast<std::uint32_t>(number));
      std::vector<std::byte> part(70'000);
      start.arrive_and_wait();
      while (!isOver) {
        const std::uint64_t offset = random() % kBig;
        const std::size_t count = _image->readHeld(offset, part);
        if (!isNumbered(std::span(part).first(count), offset)) ++wrong;
        if (count > 0) ++found;
      }
    });
  }
  std::mt19937 random(99);
  start.arrive_and_wait();
  for (int i = 0; i < kJumps; ++i) {
    const std::uint64_t offset = random() % kBig;
    ASSERT_TRUE(comesToHand(*_image, offset, offset + 1));
  }
  while (found == 0) std::this_thread::yield();
  isOver = true;
  readers.clear();
  EXPECT_EQ(wrong, 0U);
}
