// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <new>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "support/Confinement.h"
#include "support/LockedMemory.h"
#include "unit/takes/MemoryFixture.h"

namespace {

using Trouble = TakeMemory::Trouble;

class DamagedMemory : public MemoryFixture {
 protected:
  void rememberMany() {
    remember(file, "b", 1);
    change(file,
           "WITH RECURSIVE many (x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM many WHERE x < 1000) "
           "INSERT INTO takes SELECT hex(randomblob(16)), 90, 1, NULL, NULL, 0 FROM many");
  }
  /// It is set aside with what it held, and a new one remembers.
  void expectSetAside() {
    const auto before = TemporaryFolder::read(file);
    TakeMemory memory(file);
    EXPECT_EQ(memory.find("a"), std::nullopt);
    EXPECT_EQ(memory.takeTrouble(), Trouble::SetAside);
    EXPECT_EQ(TemporaryFolder::read(memory.damagedPath()), before);
    EXPECT_TRUE(memory.remember("a", sound(5)));
    EXPECT_EQ(gainOf(file, "a"), 5);
    EXPECT_EQ(memory.takeTrouble(), Trouble::None);
  }
};

TEST_F(DamagedMemory, BytesOfSomethingElse) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << std::string(10'000, 'x');
  expectSetAside();
}

TEST_F(DamagedMemory, AFileThatWasCut) {
  rememberMany();
  std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2);
  expectSetAside();
}

TEST_F(DamagedMemory, APageOfZeros) {
  rememberMany();
  std::fstream out(file, std::ios::in | std::ios::out | std::ios::binary);
  out.seekp(4096);
  out << std::string(4096, '\0') << std::flush;
  out.close();
  expectSetAside();
}

TEST_F(DamagedMemory, ATableThatIsMissing) {
  remember(file, "a", 1);
  change(file, "DROP TABLE takes");
  expectSetAside();
}

TEST_F(DamagedMemory, OneThatWasSetAsideBeforeStays) {
  remember(file, "a", 1);
  change(file, "DROP TABLE takes");
  const auto first = TemporaryFolder::read(file);
  expectSetAside();
  std::ofstream(file) << std::string(10'000, 'x');
  expectSetAside();
  const auto kept = TakeMemory(file).damagedPath().native() + "-2";
  EXPECT_EQ(TemporaryFolder::read(kept), first);
}

TEST_F(DamagedMemory, WhoRemembersFirstSetsItAsideToo) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << std::string(10'000, 'x');
  TakeMemory memory(file);
  EXPECT_TRUE(memory.remember("a", sound(3)));
  EXPECT_EQ(memory.takeTrouble(), Trouble::SetAside);
  EXPECT_EQ(gainOf(file, "a"), 3);
}

// Somebody has it open: to take it away would let them write into another one's.
TEST_F(DamagedMemory, ItStaysWhileAnotherProgramUsesIt) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << std::string(10'000, 'x');
  const int lock = open((file.native() + ".lock").c_str(), O_CREAT | O_RDWR, 0600);
  ASSERT_EQ(flock(lock, LOCK_SH), 0);
  TakeMemory memory(file, std::chrono::milliseconds(5));
  EXPECT_FALSE(memory.remember("a", sound(1)));
  EXPECT_FALSE(std::filesystem::exists(memory.damagedPath()));
  close(lock);
  EXPECT_TRUE(memory.remember("a", sound(1)));
}

class MemoryFault : public MemoryFixture {
 protected:
  /// So many programs at once, each of which remembers `kTakes` takes of its own.
  void rememberAtOnce(int programs) const {
    std::vector<pid_t> children;
    for (int i = 0; i < programs; ++i) {
      const pid_t child = fork();
      if (child == 0) _exit(rememberMany(i) ? 0 : 1);
      children.push_back(child);
    }
    for (const pid_t child : children) {
      int status = 0;
      ASSERT_EQ(waitpid(child, &status, 0), child);
      EXPECT_EQ(status, 0);
    }
    for (int take = 0; take < programs * kTakes; ++take) {
      EXPECT_EQ(gainOf(file, std::to_string(take)), take % 30) << take;
    }
  }

  /// For a moment, where nobody else uses it.
  void lockShortly() const {
    sqlite3* other = nullptr;
    sqlite3_open(file.c_str(), &other);
    sqlite3_exec(other, "PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE", nullptr, nullptr,
                 nullptr);
    sqlite3_close(other);
  }

  static constexpr int kTakes = 25;

 private:
  [[nodiscard]] bool rememberMany(int program) const {
    TakeMemory memory(file, std::chrono::minutes(1));
    bool isDone = true;
    for (int take = program * kTakes; take < (program + 1) * kTakes; ++take) {
      isDone = memory.remember(std::to_string(take), sound(take % 30)) && isDone;
    }
    return isDone;
  }
};

TEST_F(MemoryFault, ProgramsThatBeginAtOnceLoseNothing) {
  rememberAtOnce(4);
}

TEST_F(MemoryFault, ProgramsThatFindItDamagedSetItAsideOnce) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << std::string(10'000, 'x');
  rememberAtOnce(3);
  EXPECT_EQ(std::filesystem::file_size(TakeMemory(file).damagedPath()), 10'000U);
}

TEST_F(MemoryFault, AFullDiskLosesNothingThatWasThere) {
  const int status = Confinement::run([this] {
    if (!Confinement::mountSmallDisk(folder.path(), 128 << 10)) return 2;
    remember(file, "a", 1);
    std::ofstream(folder.path() / "rest") << std::string(1 << 20, 'x') << std::flush;
    TakeMemory memory(file);
    bool isRefused = false;
    for (int i = 0; i < 2000 && !isRefused; ++i) {
      isRefused = !memory.remember(std::to_string(i), sound(1));
    }
    if (!isRefused) return 3;
    if (memory.takeTrouble() != Trouble::OutOfReach) return 4;
    std::filesystem::remove(folder.path() / "rest");
    if (gainOf(file, "a") != 1) return 5;
    if (!memory.remember("b", sound(2))) return 6;
    return std::filesystem::exists(memory.damagedPath()) ? 7 : 0;
  });
  EXPECT_EQ(status, 0);
}

TEST_F(MemoryFault, AMediumThatCannotBeWrittenToIsReadAllTheSame) {
  remember(file, "a", 8);
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
  std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0555));
  std::filesystem::permissions(file, std::filesystem::perms(0444));
  const auto before = TemporaryFolder::read(file);
  const int status = Confinement::run([this] {
    if (!Confinement::dropPrivileges()) return 2;
    TakeMemory memory(file);
    if (memory.find("a") != sound(8)) return 3;
    if (memory.remember("a", sound(1))) return 4;
    if (memory.takeTrouble() != Trouble::OutOfReach) return 5;
    return memory.failure().empty() ? 6 : 0;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(TemporaryFolder::read(file), before);
  std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0755));
}

TEST_F(MemoryFault, ADamagedOneThatCannotBeSetAsideIsTold) {
  remember(file, "a", 8);
  std::ofstream(file, std::ios::trunc) << std::string(10'000, 'x');
  const auto before = TemporaryFolder::read(file);
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
  std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0555));
  std::filesystem::permissions(file, std::filesystem::perms(0666));
  const int status = Confinement::run([this] {
    if (!Confinement::dropPrivileges()) return 2;
    TakeMemory memory(file);
    if (memory.remember("a", sound(1))) return 3;
    if (memory.takeTrouble() != Trouble::OutOfReach) return 4;
    return memory.failure() == file.native() + ": is damaged and cannot be set aside" ? 0 : 5;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(TemporaryFolder::read(file), before);
  std::filesystem::permissions(file.parent_path(), std::filesystem::perms(0755));
}

TEST_F(MemoryFault, WhileAnotherProgramHasItLockedItIsReadAndNotSetAside) {
  remember(file, "a", 1);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  TakeMemory memory(file, std::chrono::milliseconds(5));
  EXPECT_EQ(memory.find("a"), sound(1));
  EXPECT_FALSE(memory.remember("a", sound(2)));
  EXPECT_EQ(memory.takeTrouble(), Trouble::OutOfReach);
  EXPECT_FALSE(std::filesystem::exists(memory.damagedPath()));
  sqlite3_close(other);
  EXPECT_TRUE(memory.remember("a", sound(3)));
  EXPECT_EQ(gainOf(file, "a"), 3);
}

// SQLite waits for one that writes, but not where the way of writing is changed.
TEST_F(MemoryFault, WhileAnotherProgramBeginsItIsWaitedFor) {
  std::filesystem::create_directories(file.parent_path());
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  bool isRemembered = false;
  std::thread waiting(
      [&] { isRemembered = TakeMemory(file, std::chrono::minutes(1)).remember("a", sound(2)); });
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  sqlite3_close(other);
  waiting.join();
  EXPECT_TRUE(isRemembered);
  EXPECT_EQ(gainOf(file, "a"), 2);
}

// Takes that are asked for one after the other wait once, not once each.
TEST_F(MemoryFault, WhoHasWaitedInVainDoesNotWaitAgainUntilItIsFree) {
  remember(file, "a", 1);
  constexpr int kAsked = 50;
  constexpr std::chrono::milliseconds kPatience(500);
  using Clock = std::chrono::steady_clock;
  TakeMemory memory(file, kPatience);
  auto lock = std::make_unique<const LockedMemory>(file);
  const auto before = Clock::now();
  EXPECT_EQ(memory.find("a"), std::nullopt);
  EXPECT_GE(Clock::now() - before, kPatience);
  EXPECT_EQ(memory.takeTrouble(), Trouble::OutOfReach);
  for (int i = 0; i < kAsked; ++i) EXPECT_EQ(memory.find("a"), std::nullopt);
  EXPECT_FALSE(memory.remember("a", sound(2)));
  EXPECT_TRUE(memory.exportsOf("/takes").empty());
  EXPECT_LT(Clock::now() - before, kAsked / 2 * kPatience);
  EXPECT_FALSE(std::filesystem::exists(memory.damagedPath()));
  lock.reset();
  EXPECT_EQ(memory.find("a"), sound(1));
  EXPECT_TRUE(memory.remember("a", sound(2)));
}

// Be it locked between two looks at it.
TEST_F(MemoryFault, WhatIsLockedNowAndThenIsNeverTakenForDamaged) {
  remember(file, "a", 1);
  std::atomic<bool> isOver{false};
  std::thread other([&] {
    while (!isOver) lockShortly();
  });
  for (int i = 0; i < 300; ++i) {
    TakeMemory memory(file, std::chrono::milliseconds(0));
    const auto found = memory.find("a");
    EXPECT_TRUE(!found || found == sound(1));
    EXPECT_NE(memory.takeTrouble(), Trouble::SetAside);
  }
  isOver = true;
  other.join();
  EXPECT_FALSE(std::filesystem::exists(TakeMemory(file).damagedPath()));
  EXPECT_EQ(gainOf(file, "a"), 1);
}

TEST_F(MemoryFault, AFolderThatCannotBeMadeIsHarmless) {
  const auto nowhere = folder.file("a file", {}) / "mixdeck" / "takes.db";
  TakeMemory memory(nowhere);
  EXPECT_EQ(memory.find("a"), std::nullopt);
  EXPECT_FALSE(memory.remember("a", sound(1)));
  EXPECT_EQ(memory.takeTrouble(), Trouble::OutOfReach);
}

// What a program was told to be remembered is there, whenever it is killed afterwards.
TEST_F(MemoryFault, TwoHundredKillsLoseNothingThatWasTold) {
  void* const page = mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE,
                          MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(page, MAP_FAILED);
  auto& told = *new (page) std::atomic<int>(0);
  std::minstd_rand random(20);
  for (int kill = 0; kill < 200; ++kill) {
    const int before = told;
    const pid_t child = fork();
    if (child == 0) {
      TakeMemory memory(file, std::chrono::minutes(1));
      for (int i = before + 1;; ++i) {
        const RememberedSound next{90.0, 0, FrameRange{0, static_cast<std::uint64_t>(i)}};
        if (memory.remember("a", next)) told = i;
      }
    }
    // Every other one is killed in the middle of its work, the rest at its beginning.
    while (kill % 2 == 0 && told == before) std::this_thread::yield();
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 6000));
    ::kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const int known = told;
    TakeMemory memory(file);
    const auto found = memory.find("a");
    ASSERT_EQ(memory.takeTrouble(), Trouble::None) << memory.failure();
    if (known > 0) {
      ASSERT_TRUE(found && found->loop) << kill;
      EXPECT_GE(found->loop->end, static_cast<std::uint64_t>(known)) << kill;
    }
  }
  EXPECT_GE(told, 100);
  munmap(page, sizeof(std::atomic<int>));
}

}  // namespace
