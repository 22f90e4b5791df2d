// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <barrier>
#include <cerrno>
#include <thread>

#include "export/AtomicFile.h"
#include "support/TemporaryFolder.h"

namespace {

/// A disk with room for one file that two ask for at once: each gets half of it before both find it
/// full, and what they had is free again.
struct FullDisk {
  std::barrier<> bothHaveHalf{2};
  std::atomic<int> asked = 0;
  std::atomic<bool> isTaken = false;

  int setAside() {
    if (asked++ < 2) {
      bothHaveHalf.arrive_and_wait();
      errno = ENOSPC;
      return -1;
    }
    if (!isTaken.exchange(true)) return 0;
    errno = ENOSPC;
    return -1;
  }
};

FullDisk* fullDisk = nullptr;

}  // namespace

// Stands before the system's own.
int fallocate(int file, int mode, off_t from, off_t bytes) {
  if (fullDisk != nullptr) return fullDisk->setAside();
  return static_cast<int>(syscall(SYS_fallocate, file, mode, from, bytes));
}

namespace {

TEST(AtomicFileRoom, OneOfTwoThatTakeItFromEachOtherHasIt) {
  const TemporaryFolder folder;
  FullDisk disk;
  fullDisk = &disk;
  const auto expect = [&](const char* name) {
    AtomicFile(folder.path() / name, AtomicFile::Existing::Refuse).expect(1 << 20);
  };
  std::thread other([&] { expect("b"); });
  expect("a");
  other.join();
  fullDisk = nullptr;
  EXPECT_TRUE(disk.isTaken);
  EXPECT_EQ(disk.asked, 4);
}

}  // namespace
