// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/BackgroundWriter.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <span>
#include <thread>
#include <vector>

#include "export/AtomicFile.h"
#include "support/Confinement.h"
#include "support/TemporaryFolder.h"

namespace {

using Bytes = RawBytes;

Bytes numbered(std::size_t block, std::size_t size) {
  Bytes bytes(size);
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::byte>(block * 7 + i);
  return bytes;
}

BackgroundWriter::Append into(AtomicFile& file) {
  return [&file](std::span<const std::byte> bytes) { return file.write(bytes); };
}

TEST(BackgroundWriter, WritesEveryBlockInOrder) {
  const TemporaryFolder folder;
  AtomicFile file(folder.path() / "out", AtomicFile::Existing::Refuse);
  BackgroundWriter writer(into(file));
  std::vector<std::byte> expected;
  for (std::size_t i = 0; i < 200; ++i) {
    Bytes block = numbered(i, i * 13);
    expected.insert(expected.end(), block.begin(), block.end());
    writer.submit(block);
    EXPECT_TRUE(block.empty());
  }
  writer.finish();
  EXPECT_FALSE(writer.hasFailed());
  ASSERT_TRUE(file.commit()) << file.failure();
  EXPECT_EQ(expected, TemporaryFolder::read(folder.path() / "out"));
}

TEST(BackgroundWriter, FinishWithNothingSubmittedAndTwice) {
  const TemporaryFolder folder;
  AtomicFile file(folder.path() / "out", AtomicFile::Existing::Refuse);
  BackgroundWriter writer(into(file));
  writer.finish();
  writer.finish();
  EXPECT_FALSE(writer.hasFailed());
}

// The block that is being written when the writer goes is the last one, and is waited for.
TEST(BackgroundWriter, DroppedInTheMiddleWritesNoMore) {
  std::atomic<int> begun{0};
  std::atomic<int> ended{0};
  {
    const BackgroundWriter* self = nullptr;
    BackgroundWriter writer([&](std::span<const std::byte>) {
      ++begun;
      while (!self->hasFailed()) std::this_thread::yield();  // until it is being dropped
      ++ended;
      return true;
    });
    self = &writer;
    for (std::size_t i = 0; i < 3; ++i) {
      Bytes block = numbered(i, 100);
      writer.submit(block);
    }
    while (begun == 0) std::this_thread::yield();
  }
  EXPECT_EQ(begun, 1);
  EXPECT_EQ(ended, 1);
}

TEST(BackgroundWriter, AFailedWriteIsToldAndNeverBlocks) {
  const TemporaryFolder folder;
  const int status = Confinement::run([&folder] {
    if (!Confinement::limitFileSize(100'000)) return 2;
    AtomicFile file(folder.path() / "out", AtomicFile::Existing::Refuse);
    BackgroundWriter writer(into(file));
    for (std::size_t i = 0; i < 100; ++i) {
      Bytes block = numbered(i, 10'000);
      writer.submit(block);
    }
    writer.finish();
    return writer.hasFailed() && file.failure() == "File too large" && !file.commit() ? 0 : 1;
  });
  EXPECT_EQ(0, status);
  EXPECT_TRUE(folder.names().empty());
}

// As where a process has all the threads that it may have.
TEST(BackgroundWriter, WritesByItselfWhereNoThreadCanBeStarted) {
  const TemporaryFolder folder;
  const int status = Confinement::run([&folder] {
    if (!Confinement::failSystemCall(SYS_clone3, EAGAIN)) return 2;
    if (!Confinement::failSystemCall(SYS_clone, EAGAIN)) return 3;
    AtomicFile file(folder.path() / "out", AtomicFile::Existing::Refuse);
    BackgroundWriter writer(into(file));
    for (std::size_t i = 0; i < 10; ++i) {
      Bytes block = numbered(i, 1000);
      writer.submit(block);
      if (!block.empty()) return 4;
    }
    writer.finish();
    return !writer.hasFailed() && file.commit() ? 0 : 1;
  });
  EXPECT_EQ(0, status);
  std::vector<std::byte> expected;
  for (std::size_t i = 0; i < 10; ++i) {
    const Bytes block = numbered(i, 1000);
    expected.insert(expected.end(), block.begin(), block.end());
  }
  EXPECT_EQ(expected, TemporaryFolder::read(folder.path() / "out"));
}

}  // namespace
