// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <functional>
#include <string_view>
#include <vector>

#include "Saving.h"
#include "export/AtomicFile.h"
#include "support/ByteBuilder.h"
#include "support/Confinement.h"
#include "support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

using Bytes = std::vector<std::byte>;
using testing::ElementsAre;

constexpr std::size_t kDisk = 256 << 10;

/// Runs in the child; prints what differs, so that a failing test says why.
bool isSame(const std::string& what, const std::string& expected) {
  if (what == expected) return true;
  std::fprintf(stderr, "expected \"%s\", got \"%s\"\n", expected.c_str(), what.c_str());
  return false;
}

/// Work for a child: 0 when all of it holds.
int inChild(const std::function<bool()>& work) {
  return Confinement::run([&] { return work() ? 0 : 1; });
}

/// A folder that a user without rights can reach, with one old file in it.
class AtomicFileFaultTest : public testing::Test {
 protected:
  AtomicFileFaultTest() {
    chmod(_folder.path().c_str(), 0777);
    _old = _folder.file("old", bytesOf("old"));
    chmod(_old.c_str(), 0666);
  }

  void expectOldAlone() const {
    EXPECT_EQ(TemporaryFolder::read(_old), bytesOf("old"));
    EXPECT_THAT(_folder.names(), ElementsAre("old"));
  }

  [[nodiscard]] fs::path at(const char* name) const { return _folder.path() / name; }

  TemporaryFolder _folder;
  fs::path _old;
};

TEST_F(AtomicFileFaultTest, SavesWithoutPrivileges) {
  EXPECT_EQ(inChild([this] {
              return Confinement::dropPrivileges() && isSame(save(at("new"), bytesOf("n")), "") &&
                     isSame(save(_old, bytesOf("n")), "");
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(at("new")), bytesOf("n"));
  EXPECT_EQ(TemporaryFolder::read(_old), bytesOf("n"));
  EXPECT_THAT(_folder.names(), ElementsAre("new", "old"));
}

TEST_F(AtomicFileFaultTest, FailsInAReadOnlyFolder) {
  ASSERT_EQ(chmod(_folder.path().c_str(), 0555), 0);
  EXPECT_EQ(inChild([this] {
              return Confinement::dropPrivileges() &&
                     isSame(save(at("new"), bytesOf("n")), "Permission denied") &&
                     isSame(save(_old, bytesOf("n")), "Permission denied");
            }),
            0);
  ASSERT_EQ(chmod(_folder.path().c_str(), 0777), 0);
  expectOldAlone();
}

TEST_F(AtomicFileFaultTest, DoesNotReplaceAReadOnlyFile) {
  ASSERT_EQ(chmod(_old.c_str(), 0444), 0);
  EXPECT_EQ(inChild([this] {
              return Confinement::dropPrivileges() &&
                     isSame(save(_old, bytesOf("n")), "Permission denied");
            }),
            0);
  expectOldAlone();
}

// Without a mount of its own the child gets a limit on file sizes: full all the same.
TEST_F(AtomicFileFaultTest, KeepsTheOldFileOnAFullDisk) {
  EXPECT_EQ(inChild([this] {
              const bool isMounted = Confinement::mountSmallDisk(_folder.path(), kDisk);
              const std::string text = isMounted ? "No space left on device" : "File too large";
              if (!isMounted && !Confinement::limitFileSize(kDisk)) return false;
              _folder.file("old", bytesOf("old"));
              return isSame(save(_old, Bytes(2 * kDisk)), text) &&
                     isSame(save(at("new"), Bytes(2 * kDisk)), text) &&
                     _folder.names() == std::vector<std::string>{"old"} &&
                     TemporaryFolder::read(_old) == bytesOf("old") &&
                     isSame(save(_old, Bytes(kDisk / 2)), "");
            }),
            0);
}

TEST_F(AtomicFileFaultTest, GivesTheRoomBackAfterAFullDisk) {
  EXPECT_EQ(inChild([this] {
              if (!Confinement::mountSmallDisk(_folder.path(), kDisk)) {
                return Confinement::limitFileSize(kDisk) &&
                       isSame(save(at("new"), Bytes(2 * kDisk)), "File too large") &&
                       isSame(save(at("new"), Bytes(kDisk)), "");
              }
              return isSame(save(at("new"), Bytes(2 * kDisk)), "No space left on device") &&
                     isSame(save(at("new"), Bytes(kDisk * 3 / 4)), "");
            }),
            0);
}

TEST_F(AtomicFileFaultTest, KeepsTheOldFileAtTheSizeLimit) {
  EXPECT_EQ(inChild([this] {
              return Confinement::limitFileSize(1000) &&
                     isSame(save(_old, Bytes(1001)), "File too large") &&
                     isSame(save(at("new"), Bytes(1001)), "File too large");
            }),
            0);
  expectOldAlone();
}

TEST_F(AtomicFileFaultTest, FlushesAReplacedFileBeforeItGoes) {
  EXPECT_EQ(inChild([this] {
              return Confinement::failSystemCall(SYS_fsync, EIO) &&
                     isSame(save(_old, bytesOf("n")), "Input/output error");
            }),
            0);
  expectOldAlone();
}

TEST_F(AtomicFileFaultTest, DoesNotFlushANewFile) {
  EXPECT_EQ(inChild([this] {
              return Confinement::failSystemCall(SYS_fsync, EIO) &&
                     isSame(save(at("new"), bytesOf("n")), "");
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(at("new")), bytesOf("n"));
}

TEST_F(AtomicFileFaultTest, ExpectsInVainWhereNoRoomCanBeSetAside) {
  for (const int error : {EOPNOTSUPP, ENOSPC, EINTR}) {
    EXPECT_EQ(inChild([this, error] {
                if (!Confinement::failSystemCall(SYS_fallocate, error)) return false;
                AtomicFile file(_old, kReplace);
                file.expect(kDisk);
                return file.write(bytesOf("n")) && file.commit();
              }),
              0);
    EXPECT_EQ(TemporaryFolder::read(_old), bytesOf("n"));
  }
}

// As on FAT, where a power cut would leave it as lost clusters.
TEST_F(AtomicFileFaultTest, SetsNoRoomAsideForAFileThatHasAName) {
  EXPECT_EQ(inChild([this] {
              if (!Confinement::refuseUnnamedFiles()) return false;
              AtomicFile file(at("new"), kReplace);
              file.expect(1 << 20);
              return file.write(bytesOf("n")) && file.commit();
            }),
            0);
  struct stat status {};
  ASSERT_EQ(stat(at("new").c_str(), &status), 0);
  EXPECT_LT(512 * status.st_blocks, 1 << 20);
}

TEST_F(AtomicFileFaultTest, LeavesNothingWhenTheRenameFails) {
  EXPECT_EQ(inChild([this] {
              return Confinement::failRenames(EIO) &&
                     isSame(save(_old, bytesOf("n")), "Input/output error");
            }),
            0);
  expectOldAlone();
}

// Whoever locks a file before its maker does will take its name away.
TEST_F(AtomicFileFaultTest, WritesNoFileThatAnotherHasTakenForALeftover) {
  EXPECT_EQ(inChild([this] {
              return Confinement::refuseUnnamedFiles() &&
                     Confinement::failSystemCall(SYS_flock, EWOULDBLOCK) &&
                     isSame(save(at("new"), bytesOf("n")), "File exists");
            }),
            0);
  expectOldAlone();
}

TEST_F(AtomicFileFaultTest, SavesWhereFilesCannotBeLocked) {
  EXPECT_EQ(inChild([this] {
              return Confinement::refuseUnnamedFiles() &&
                     Confinement::failSystemCall(SYS_flock, ENOLCK) &&
                     isSame(save(at("new"), bytesOf("n")), "");
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(at("new")), bytesOf("n"));
}

TEST_F(AtomicFileFaultTest, LeavesNothingWhenTheNamingFails) {
  EXPECT_EQ(inChild([this] {
              return Confinement::failSystemCall(SYS_linkat, EIO) &&
                     isSame(save(_old, bytesOf("n")), "Input/output error") &&
                     isSame(save(at("new"), bytesOf("n")), "Input/output error");
            }),
            0);
  expectOldAlone();
}

TEST_F(AtomicFileFaultTest, ReplacesAFileThatMayNotBeGivenAway) {
  EXPECT_EQ(inChild([this] {
              return Confinement::failSystemCall(SYS_fchown, EPERM) &&
                     Confinement::failSystemCall(SYS_fchmod, EPERM) &&
                     isSame(save(_old, bytesOf("n")), "");
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(_old), bytesOf("n"));
}

TEST_F(AtomicFileFaultTest, ReplacesAFileWhereThereAreNoModes) {
  EXPECT_EQ(inChild([this] {
              return Confinement::failSystemCall(SYS_fchmod, EOPNOTSUPP) &&
                     isSame(save(_old, bytesOf("n")), "");
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(_old), bytesOf("n"));
}

TEST_F(AtomicFileFaultTest, ReplacesAFileWhereNoProcessCanBeStarted) {
  EXPECT_EQ(inChild([this] {
              return Confinement::failSystemCall(SYS_clone, EAGAIN) &&
                     isSame(save(_old, bytesOf("n")), "");
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(_old), bytesOf("n"));
  EXPECT_THAT(_folder.names(), ElementsAre("old"));
}

// A user may give a file to any group of theirs, though to no other user.
TEST_F(AtomicFileFaultTest, KeepsTheGroupOfAReplacedFileOfSomebodyElse) {
  constexpr gid_t kShared = 1234;
  const bool isRoot = geteuid() == 0;
  ASSERT_TRUE(!isRoot || chown(_old.c_str(), 1, kShared) == 0);
  EXPECT_EQ(inChild([this, isRoot] {
              if (isRoot && !Confinement::becomeMemberOf(kShared)) return false;
              return isSame(save(_old, bytesOf("n")), "");
            }),
            0);
  struct stat status {};
  ASSERT_EQ(stat(_old.c_str(), &status), 0);
  EXPECT_EQ(status.st_gid, isRoot ? kShared : getegid());
}

}  // namespace
