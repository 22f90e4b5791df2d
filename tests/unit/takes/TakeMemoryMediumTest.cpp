// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include "support/Confinement.h"
#include "unit/takes/MemoryFixture.h"

namespace {

using Trouble = TakeMemory::Trouble;

/// A medium that gives nothing after so many reads of SQLite's, as long as this is there. One at a
/// time.
class FailingReads {
 public:
  explicit FailingReads(int after) {
    left = after;
    set(reinterpret_cast<sqlite3_syscall_ptr>(&inOrder),
        reinterpret_cast<sqlite3_syscall_ptr>(&at));
  }
  FailingReads(const FailingReads&) = delete;
  FailingReads& operator=(const FailingReads&) = delete;
  ~FailingReads() { set(nullptr, nullptr); }

  static bool haveFailed() { return left < 0; }

 private:
  static void set(sqlite3_syscall_ptr inOrder, sqlite3_syscall_ptr at) {
    sqlite3_vfs* const system = sqlite3_vfs_find(nullptr);
    for (const char* const name : {"pread", "pread64"}) system->xSetSystemCall(system, name, at);
    system->xSetSystemCall(system, "read", inOrder);
  }
  static bool isRefused() {
    if (left >= 0) --left;
    errno = EIO;
    return left < 0;
  }
  static ssize_t inOrder(int file, void* bytes, std::size_t size) {
    return isRefused() ? -1 : read(file, bytes, size);
  }
  static ssize_t at(int file, void* bytes, std::size_t size, off_t offset) {
    return isRefused() ? -1 : pread(file, bytes, size, offset);
  }

  inline static int left = 0;
};

class MemoryMedium : public MemoryFixture {
 protected:
  void rememberMany() const {
    remember(file, "a", 1);
    change(file,
           "WITH RECURSIVE many (x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM many WHERE x < 1000) "
           "INSERT INTO takes SELECT hex(randomblob(16)), 90, 1, NULL, NULL, 0 FROM many");
  }
  void fillDisk() const {
    std::ofstream(folder.path() / "rest") << std::string(1 << 20, 'x') << std::flush;
  }
  [[nodiscard]] bool isSetAside() const {
    return std::filesystem::exists(TakeMemory(file).damagedPath());
  }
};

// Be it any of the reads that the medium fails at, and all that follow.
TEST_F(MemoryMedium, WhatCannotBeReadIsNotTakenForDamaged) {
  rememberMany();
  bool haveFailed = true;
  for (int after = 0; haveFailed; ++after) {
    TakeMemory memory(file);
    {
      const FailingReads reads(after);
      static_cast<void>(memory.find("a"));
      haveFailed = FailingReads::haveFailed();
    }
    ASSERT_FALSE(isSetAside()) << after;
    EXPECT_EQ(memory.takeTrouble(), haveFailed ? Trouble::OutOfReach : Trouble::None) << after;
    EXPECT_EQ(memory.find("a"), sound(1)) << after;
  }
}

TEST_F(MemoryMedium, NorIsItWhereMemoryRunsOut) {
  rememberMany();
  const int status = Confinement::run([this] {
    constexpr sqlite3_int64 kMost = 2 << 20;
    bool wasRefused = false;
    for (sqlite3_int64 limit = 4 << 10; limit < kMost; limit += 1 << 10) {
      TakeMemory memory(file);
      sqlite3_hard_heap_limit64(limit);
      static_cast<void>(memory.find("a"));
      sqlite3_hard_heap_limit64(std::numeric_limits<sqlite3_int64>::max());
      if (isSetAside()) return 2;
      wasRefused = wasRefused || memory.takeTrouble() == Trouble::OutOfReach;
      if (memory.find("a") != sound(1)) return 3;
    }
    return wasRefused ? 0 : 4;
  });
  EXPECT_EQ(status, 0);
}

// Written by another program before there was no room left; nothing of it is open.
TEST_F(MemoryMedium, AFullDiskIsReadFrom) {
  const int status = Confinement::run([this] {
    if (!Confinement::mountSmallDisk(folder.path(), 128 << 10)) return 2;
    remember(file, "a", 1);
    fillDisk();
    TakeMemory memory(file);
    if (memory.find("a") != sound(1)) return 3;
    if (!memory.exportsOf("/takes").empty()) return 4;
    if (memory.remember("a", sound(2))) return 5;
    if (memory.takeTrouble() != Trouble::OutOfReach) return 6;
    if (memory.failure().find("readonly") != std::string::npos) return 7;
    if (memory.find("a") != sound(1)) return 8;
    std::filesystem::remove(folder.path() / "rest");
    if (!memory.remember("a", sound(3))) return 9;
    if (gainOf(file, "a") != 3) return 10;
    return isSetAside() ? 11 : 0;
  });
  EXPECT_EQ(status, 0);
}

TEST_F(MemoryMedium, AFullDiskWithAFileOfTheFirstVersionIsReadFrom) {
  const int status = Confinement::run([this] {
    if (!Confinement::mountSmallDisk(folder.path(), 128 << 10)) return 2;
    remember(file, "a", 1);
    change(file, "DROP TABLE exports; PRAGMA user_version = 1; PRAGMA journal_mode = DELETE");
    fillDisk();
    TakeMemory memory(file);
    if (memory.find("a") != sound(1)) return 3;
    return isSetAside() ? 4 : 0;
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
