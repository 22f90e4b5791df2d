// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WaveImage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "ImageFile.h"
#include "support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;

std::vector<std::byte> readAt(const WaveImage& image, std::uint64_t offset, std::size_t count) {
  std::vector<std::byte> bytes(count, std::byte{0xEE});
  bytes.resize(image.readAt(offset, bytes));
  return bytes;
}

}  // namespace

TEST(WaveImageTest, AnImageOfBytesIsCompleteAtOnce) {
  const auto bytes = numberedBytes(1000);
  const auto image = WaveImage::fromBytes(bytes);
  EXPECT_EQ(image->size(), 1000U);
  EXPECT_EQ(image->loaded(), 1000U);
  EXPECT_EQ(image->failure(), "");
  EXPECT_TRUE(std::ranges::equal(image->bytes(), bytes));
  EXPECT_EQ(image->raw().length, 1000U);
  EXPECT_TRUE(image->waitUntilLoaded(1000));
}

TEST(WaveImageTest, AnImageOfNoBytesIsComplete) {
  const auto image = WaveImage::fromBytes({});
  EXPECT_EQ(image->size(), 0U);
  EXPECT_TRUE(image->bytes().empty());
  EXPECT_TRUE(image->waitUntilLoaded(0));
  EXPECT_TRUE(readAt(*image, 0, 10).empty());
}

TEST(WaveImageTest, LoadingAnImageOfBytesChangesNothing) {
  const auto bytes = numberedBytes(1000);
  const auto image = WaveImage::fromBytes(bytes);
  const auto* const block = image->raw().bytes;
  image->startLoading();
  EXPECT_EQ(image->raw().bytes, block);
  EXPECT_TRUE(std::ranges::equal(image->bytes(), bytes));
}

TEST(WaveImageTest, AnImageOfAFileStartsEmptyAndFills) {
  const TemporaryFolder folder;
  const auto bytes = numberedBytes(3 * kMegabyte + 17);
  const auto image = imageOf(folder.file("a.wav", bytes));
  EXPECT_EQ(image->size(), bytes.size());
  EXPECT_EQ(image->loaded(), 0U);
  EXPECT_TRUE(image->bytes().empty());
  EXPECT_EQ(image->raw().length, 0U);
  image->startLoading();
  ASSERT_TRUE(image->waitUntilLoaded(bytes.size()));
  EXPECT_EQ(image->loaded(), bytes.size());
  EXPECT_EQ(image->raw().length, bytes.size());
  EXPECT_TRUE(std::ranges::equal(image->bytes(), bytes));
  EXPECT_EQ(image->failure(), "");
}

TEST(WaveImageTest, AnEmptyFileIsCompleteFromTheStart) {
  const TemporaryFolder folder;
  const auto image = imageOf(folder.file("a.wav", {}));
  EXPECT_EQ(image->size(), 0U);
  EXPECT_TRUE(image->waitUntilLoaded(1));
  image->startLoading();
  EXPECT_TRUE(image->waitUntilLoaded(1));
  EXPECT_TRUE(image->bytes().empty());
}

TEST(WaveImageTest, StartingTwiceLoadsOnce) {
  const TemporaryFolder folder;
  const auto bytes = numberedBytes(kMegabyte);
  const auto image = imageOf(folder.file("a.wav", bytes));
  image->startLoading();
  const auto* const block = image->raw().bytes;
  image->startLoading();
  EXPECT_EQ(image->raw().bytes, block);
  ASSERT_TRUE(image->waitUntilLoaded(bytes.size()));
  EXPECT_TRUE(std::ranges::equal(image->bytes(), bytes));
}

TEST(WaveImageTest, WaitingPastTheEndIsWaitingForTheEnd) {
  EXPECT_TRUE(WaveImage::fromBytes(numberedBytes(10))->waitUntilLoaded(1000000));
}

TEST(WaveImageTest, AMissingFileGivesTheReason) {
  const TemporaryFolder folder;
  std::string whyNot;
  EXPECT_EQ(WaveImage::fromFile(folder.path() / "none", whyNot), nullptr);
  EXPECT_EQ(whyNot, std::make_error_code(std::errc::no_such_file_or_directory).message());
}

TEST(WaveImageTest, BytesAreReadFromTheFileWhereTheyHaveNotArrived) {
  const TemporaryFolder folder;
  const auto bytes = numberedBytes(1000);
  const auto image = imageOf(folder.file("a.wav", bytes));
  EXPECT_EQ(readAt(*image, 0, 1000), bytes);
  EXPECT_EQ(readAt(*image, 990, 10), numberedBytes(10, 990));
  EXPECT_EQ(image->loaded(), 0U);
}

TEST(WaveImageTest, ReadingEndsWithTheImage) {
  const TemporaryFolder folder;
  const auto onDisk = imageOf(folder.file("a.wav", numberedBytes(1000)));
  for (const auto& image : {onDisk, WaveImage::fromBytes(numberedBytes(1000))}) {
    EXPECT_EQ(readAt(*image, 990, 100), numberedBytes(10, 990));
    EXPECT_TRUE(readAt(*image, 1000, 1).empty());
    EXPECT_TRUE(readAt(*image, ~std::uint64_t{0}, 8).empty());
    EXPECT_TRUE(readAt(*image, 0, 0).empty());
  }
}

TEST(WaveImageTest, BytesAddedToTheFileLaterDoNotExist) {
  const TemporaryFolder folder;
  const auto path = folder.file("a.wav", numberedBytes(1000));
  const auto image = imageOf(path);
  fs::resize_file(path, 2000);
  EXPECT_EQ(readAt(*image, 990, 100).size(), 10U);
  image->startLoading();
  ASSERT_TRUE(image->waitUntilLoaded(2000));
  EXPECT_EQ(image->bytes().size(), 1000U);
}

TEST(WaveImageTest, AFileThatShrinksFailsWithWhatItHadLeft) {
  const TemporaryFolder folder;
  const auto bytes = numberedBytes(4 * kMegabyte);
  const auto path = folder.file("a.wav", bytes);
  const auto image = imageOf(path);
  fs::resize_file(path, 5 * kMegabyte / 2);
  image->startLoading();
  EXPECT_FALSE(image->waitUntilLoaded(bytes.size()));
  EXPECT_NE(image->failure(), "");
  EXPECT_GT(image->loaded(), 0U);
  EXPECT_LE(image->loaded(), 5 * kMegabyte / 2);
  EXPECT_TRUE(std::ranges::equal(image->bytes(), std::span(bytes).first(image->loaded())));
  EXPECT_TRUE(image->waitUntilLoaded(image->loaded())) << "what has arrived stays";
  EXPECT_EQ(readAt(*image, 3 * kMegabyte, 10).size(), 0U);
  EXPECT_EQ(readAt(*image, 5 * kMegabyte / 2 - 10, 20).size(), 10U);
}

TEST(WaveImageTest, AFileThatVanishesFromItsFolderIsStillRead) {
  const TemporaryFolder folder;
  const auto bytes = numberedBytes(1000);
  const auto path = folder.file("a.wav", bytes);
  const auto image = imageOf(path);
  fs::remove(path);
  image->startLoading();
  ASSERT_TRUE(image->waitUntilLoaded(1000));
  EXPECT_TRUE(std::ranges::equal(image->bytes(), bytes));
}

TEST(WaveImageTest, AReadErrorWhileLoadingIsToldToWaiters) {
  const TemporaryFolder folder;
  const auto path = folder.file("a.wav", numberedBytes(1000));
  const auto image = imageOf(path);
  makeUnreadable(path);
  image->startLoading();
  EXPECT_FALSE(image->waitUntilLoaded(1));
  EXPECT_EQ(image->failure(), std::make_error_code(std::errc::bad_file_descriptor).message());
  EXPECT_EQ(image->loaded(), 0U);
}

TEST(WaveImageTest, AReadErrorOutsideLoadingIsToldToo) {
  const TemporaryFolder folder;
  const auto path = folder.file("a.wav", numberedBytes(1000));
  const auto image = imageOf(path);
  makeUnreadable(path);
  EXPECT_TRUE(readAt(*image, 0, 10).empty());
  EXPECT_EQ(image->failure(), std::make_error_code(std::errc::bad_file_descriptor).message());
}

TEST(WaveImageTest, AbandonedBeforeItStartsNothingIsLoaded) {
  const TemporaryFolder folder;
  const auto image = imageOf(folder.file("a.wav", numberedBytes(1000)));
  image->abandon();
  image->startLoading();
  EXPECT_FALSE(image->waitUntilLoaded(1));
  EXPECT_EQ(image->loaded(), 0U);
  EXPECT_EQ(image->failure(), "") << "giving up is not a failure";
}

TEST(WaveImageTest, AbandoningKeepsWhatHasArrived) {
  const auto image = WaveImage::fromBytes(numberedBytes(10));
  image->abandon();
  EXPECT_TRUE(image->waitUntilLoaded(10));
  EXPECT_EQ(image->bytes().size(), 10U);
}

TEST(WaveImageTest, ACancelFlagThatIsSetEndsAWaitAtOnce) {
  const TemporaryFolder folder;
  const auto image = imageOf(folder.file("a.wav", numberedBytes(1000)));
  const std::atomic<bool> cancel{true};
  EXPECT_FALSE(image->waitUntilLoaded(1000, &cancel));
  EXPECT_TRUE(image->waitUntilLoaded(0, &cancel)) << "nothing to wait for";
}
