// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WaveImage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "ImageFile.h"
#include "ReadMeter.h"
#include "support/TemporaryFolder.h"
#include "support/UncountedLinks.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::byte> readAt(const WaveImage& image, std::uint64_t offset, std::size_t count) {
  std::vector<std::byte> bytes(count, std::byte{0xEE});
  bytes.resize(image.readAt(offset, bytes));
  return bytes;
}

}  // namespace

TEST(WaveImageTest, AnImageOfBytesHoldsThem) {
  const auto bytes = numberedBytes(1000);
  const auto image = WaveImage::fromBytes(bytes);
  EXPECT_EQ(image->size(), 1000U);
  EXPECT_TRUE(image->isInMemory());
  EXPECT_EQ(image->heldFrom(0), 1000U);
  EXPECT_EQ(image->heldFrom(999), 1U);
  EXPECT_EQ(image->heldFrom(1000), 0U);
  EXPECT_EQ(image->failure(), "");
  EXPECT_TRUE(std::ranges::equal(image->bytes(), bytes));
  EXPECT_EQ(image->raw().length, 1000U);
}

TEST(WaveImageTest, AnImageOfNoBytesIsComplete) {
  const auto image = WaveImage::fromBytes({});
  EXPECT_EQ(image->size(), 0U);
  EXPECT_TRUE(image->bytes().empty());
  EXPECT_EQ(image->heldFrom(0), 0U);
  EXPECT_TRUE(readAt(*image, 0, 10).empty());
}

TEST(WaveImageTest, FollowingAnImageOfBytesChangesNothing) {
  const auto bytes = numberedBytes(1000);
  const auto image = WaveImage::fromBytes(bytes);
  const auto* const block = image->raw().bytes;
  image->follow(500);
  image->abandon();
  EXPECT_EQ(image->raw().bytes, block);
  EXPECT_TRUE(std::ranges::equal(image->bytes(), bytes));
  EXPECT_EQ(heldAt(*image, 990, 100), numberedBytes(10, 990));
}

TEST(WaveImageTest, AnImageOfAFileHoldsNothingBeforeItIsFollowed) {
  const TemporaryFolder folder;
  const auto bytes = numberedBytes(3 * kMegabyte + 17);
  const auto image = imageOf(folder.file("a.wav", bytes));
  EXPECT_EQ(image->size(), bytes.size());
  EXPECT_FALSE(image->isInMemory());
  EXPECT_EQ(image->heldFrom(0), 0U);
  EXPECT_TRUE(heldAt(*image, 0, 10).empty());
  EXPECT_TRUE(image->bytes().empty());
  EXPECT_EQ(image->raw().length, 0U);
  ASSERT_TRUE(comesToHand(*image, 0, bytes.size())) << image->failure();
  EXPECT_EQ(heldAt(*image, 0, bytes.size() + 1), bytes);
  EXPECT_TRUE(image->bytes().empty());
  EXPECT_EQ(image->failure(), "");
}

TEST(WaveImageTest, AnEmptyFileHasNothingToFollow) {
  const TemporaryFolder folder;
  const auto image = imageOf(folder.file("a.wav", {}));
  image->follow(0);
  EXPECT_EQ(image->size(), 0U);
  EXPECT_EQ(image->heldFrom(0), 0U);
  EXPECT_TRUE(readAt(*image, 0, 10).empty());
  EXPECT_EQ(image->failure(), "");
}

TEST(WaveImageTest, AMissingFileGivesTheReason) {
  const TemporaryFolder folder;
  std::string whyNot;
  EXPECT_EQ(WaveImage::fromFile(folder.path() / "none", whyNot), nullptr);
  EXPECT_EQ(whyNot, std::make_error_code(std::errc::no_such_file_or_directory).message());
}

TEST(WaveImageTest, BytesAreReadFromTheFileWhereTheyAreNotAtHand) {
  const TemporaryFolder folder;
  const auto bytes = numberedBytes(1000);
  const auto image = imageOf(folder.file("a.wav", bytes));
  EXPECT_EQ(readAt(*image, 0, 1000), bytes);
  EXPECT_EQ(readAt(*image, 990, 10), numberedBytes(10, 990));
  EXPECT_EQ(image->heldFrom(0), 0U);
}

TEST(WaveImageTest, AViewIsInPlaceOrCopied) {
  const TemporaryFolder folder;
  const auto inMemory = WaveImage::fromBytes(numberedBytes(1000));
  const auto onDisk = imageOf(folder.file("a.wav", numberedBytes(1000)));
  for (const auto& image : {inMemory, onDisk}) {
    std::vector<std::byte> scratch;
    EXPECT_TRUE(std::ranges::equal(image->view(100, 50, scratch), numberedBytes(50, 100)));
    EXPECT_EQ(scratch.empty(), image->isInMemory());
    EXPECT_TRUE(std::ranges::equal(image->view(990, 50, scratch), numberedBytes(10, 990)));
    EXPECT_TRUE(image->view(1000, 50, scratch).empty());
    EXPECT_TRUE(image->view(~std::uint64_t{0}, 50, scratch).empty());
  }
}

TEST(WaveImageTest, ReadingEndsWithTheImage) {
  const TemporaryFolder folder;
  const auto onDisk = imageOf(folder.file("a.wav", numberedBytes(1000)));
  for (const auto& image : {onDisk, WaveImage::fromBytes(numberedBytes(1000))}) {
    EXPECT_EQ(readAt(*image, 990, 100), numberedBytes(10, 990));
    EXPECT_TRUE(readAt(*image, 1000, 1).empty());
    EXPECT_TRUE(readAt(*image, ~std::uint64_t{0}, 8).empty());
    EXPECT_TRUE(readAt(*image, 0, 0).empty());
    EXPECT_TRUE(heldAt(*image, ~std::uint64_t{0}, 8).empty());
    EXPECT_EQ(image->failure(), "");
  }
}

TEST(WaveImageTest, BytesAddedToTheFileLaterDoNotExist) {
  const TemporaryFolder folder;
  const auto path = folder.file("a.wav", numberedBytes(1000));
  const auto image = imageOf(path);
  fs::resize_file(path, 2000);
  EXPECT_EQ(readAt(*image, 990, 100).size(), 10U);
  ASSERT_TRUE(comesToHand(*image, 0, 1000));
  EXPECT_EQ(image->heldFrom(0), 1000U);
}

TEST(WaveImageTest, AFileThatShrinksFailsWithWhatItHasLeft) {
  const TemporaryFolder folder;
  const auto bytes = numberedBytes(4 * kMegabyte);
  const auto path = folder.file("a.wav", bytes);
  const auto image = imageOf(path);
  const std::size_t left = 5 * kMegabyte / 2 - 100;
  fs::resize_file(path, left);
  EXPECT_FALSE(comesToHand(*image, 0, bytes.size()));
  EXPECT_EQ(image->failure(), "The file became shorter");
  while (image->heldFrom(0) < left) std::this_thread::yield();
  EXPECT_EQ(heldAt(*image, 0, bytes.size()), numberedBytes(left));
  EXPECT_EQ(readAt(*image, 3 * kMegabyte, 10).size(), 0U);
  EXPECT_EQ(readAt(*image, left - 10, 20).size(), 10U);
}

TEST(WaveImageTest, WhatLiesBeforeABadSectorIsRead) {
  const TemporaryFolder folder;
  const auto image = imageOf(folder.file("a.wav", numberedBytes(2 * kMegabyte)));
  ReadMeter::breakFrom(kMegabyte + 4096);
  EXPECT_EQ(readAt(*image, kMegabyte, 8192), numberedBytes(4096, kMegabyte));
  EXPECT_EQ(image->failure(), "Input/output error");
  EXPECT_FALSE(comesToHand(*image, 0, 2 * kMegabyte));
  while (image->heldFrom(0) < kMegabyte + 4096) std::this_thread::yield();
  EXPECT_EQ(image->heldFrom(0), kMegabyte + 4096);
  ReadMeter::reset();
}

TEST(WaveImageTest, IsNoDeletedFileWhereNoLinksAreCounted) {
  const TemporaryFolder folder;
  const auto path = folder.file("a.wav", numberedBytes(1000));
  const auto counted = imageOf(path);
  {
    const UncountedLinks links;
    EXPECT_FALSE(imageOf(path)->isDeleted());
  }
  EXPECT_FALSE(counted->isDeleted());
  fs::remove(path);
  EXPECT_TRUE(counted->isDeleted());
}

TEST(WaveImageTest, AFileThatVanishesFromItsFolderIsStillRead) {
  const TemporaryFolder folder;
  const auto bytes = numberedBytes(1000);
  const auto path = folder.file("a.wav", bytes);
  const auto image = imageOf(path);
  fs::remove(path);
  ASSERT_TRUE(comesToHand(*image, 0, 1000));
  EXPECT_EQ(heldAt(*image, 0, 1000), bytes);
}

TEST(WaveImageTest, AReadErrorOfTheWorkerIsTold) {
  const TemporaryFolder folder;
  const auto path = folder.file("a.wav", numberedBytes(1000));
  const auto image = imageOf(path);
  makeUnreadable(path);
  EXPECT_FALSE(comesToHand(*image, 0, 1000));
  EXPECT_EQ(image->failure(), std::make_error_code(std::errc::bad_file_descriptor).message());
  EXPECT_EQ(image->heldFrom(0), 0U);
}

TEST(WaveImageTest, AReadErrorOfOthersIsToldToo) {
  const TemporaryFolder folder;
  const auto path = folder.file("a.wav", numberedBytes(1000));
  const auto image = imageOf(path);
  makeUnreadable(path);
  EXPECT_TRUE(readAt(*image, 0, 10).empty());
  EXPECT_EQ(image->failure(), std::make_error_code(std::errc::bad_file_descriptor).message());
}

TEST(WaveImageTest, GivingUpKeepsWhatIsAtHand) {
  const TemporaryFolder folder;
  const auto image = imageOf(folder.file("a.wav", numberedBytes(1000)));
  ASSERT_TRUE(comesToHand(*image, 0, 1000));
  image->abandon();
  EXPECT_EQ(heldAt(*image, 0, 1000), numberedBytes(1000));
  EXPECT_EQ(image->failure(), "") << "giving up is not a failure";
}
