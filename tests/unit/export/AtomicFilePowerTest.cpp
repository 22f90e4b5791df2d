// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What a disk may show under the target's name when the power goes at any moment of a save.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "export/AtomicFile.h"
#include "support/ByteBuilder.h"
#include "support/Confinement.h"
#include "support/CutDisk.h"
#include "support/DiskLog.h"
#include "support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

using Bytes = CutDisk::Bytes;
using Calls = std::vector<DiskCall>;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

Bytes bytesOf(std::string_view text) {
  return ByteBuilder().text(text).get();
}

std::string show(const CutDisk::Found& found) {
  std::string text;
  for (const auto& content : found) {
    text += content ? "\"" : "nothing";
    for (const std::byte byte : content.value_or(Bytes())) text += static_cast<char>(byte);
    text += content ? "\" " : " ";
  }
  return text;
}

/// Writes as an export does: blocks, then the sizes near the start.
bool save(const fs::path& path) {
  AtomicFile file(path, AtomicFile::Existing::Replace);
  return file.write(bytesOf("RIFF____")) && file.write(bytesOf("samples ")) &&
         file.write(bytesOf("end")) && file.writeAt(4, bytesOf("size")) && file.commit();
}

bool writeAll(int file, const Bytes& bytes) {
  return write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
}

class AtomicFilePowerTest : public testing::Test {
 protected:
  using Save = std::function<bool(const fs::path&)>;

  /// The calls of a save; in a child where no files without a name can be made.
  Calls callsOf(const Save& save, bool isNamed = false) {
    DiskLog::start();
    const auto work = [&] {
      return (!isNamed || Confinement::refuseUnnamedFiles()) && save(_target) ? 0 : 1;
    };
    EXPECT_EQ(isNamed ? Confinement::run(work) : work(), 0);
    return DiskLog::stop();
  }

  [[nodiscard]] CutDisk disk(CutDisk::Kind kind) const { return {kind, "x.WAV", _number, _old}; }

  static std::uint64_t numberOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_ino;
  }

  TemporaryFolder _folder;
  const Bytes _old = bytesOf("the old one");
  const Bytes _new = bytesOf("RIFFsizesamples end");
  const fs::path _target = _folder.file("x.WAV", _old);
  std::uint64_t _number = numberOf(_target);
};

TEST_F(AtomicFilePowerTest, LeavesTheOldOrTheNewOneWhole) {
  const Calls calls = callsOf(save);
  const auto found = disk(CutDisk::Kind::Journal).any(calls);
  EXPECT_THAT(found, ElementsAre(_new, _old)) << show(found);
}

TEST_F(AtomicFilePowerTest, LeavesTheOldOrTheNewOneWholeWhereAllFilesHaveNames) {
  const Calls calls = callsOf(save, true);
  for (const auto kind : {CutDisk::Kind::Journal, CutDisk::Kind::Table}) {
    const auto found = disk(kind).any(calls);
    EXPECT_THAT(found, ElementsAre(_new, _old)) << show(found);
  }
}

// What is carried out of the reader next is the card: it has to be whole by then.
TEST_F(AtomicFilePowerTest, HasTheNewOneForCertainWhereAllFilesHaveNames) {
  const Calls calls = callsOf(save, true);
  const auto found = disk(CutDisk::Kind::Table).after(calls);
  EXPECT_THAT(found, ElementsAre(_new)) << show(found);
}

TEST_F(AtomicFilePowerTest, SyncsBeforeItReplacesWhatAppearedMeanwhile) {
  for (const bool isNamed : {true, false}) {
    const Calls calls = callsOf(
        [this](const fs::path& to) {
          fs::remove(to);
          AtomicFile file(to, AtomicFile::Existing::Replace);
          _folder.file("x.WAV", _old);
          return file.write(_new) && file.commit();
        },
        isNamed);
    const auto at = [&](DiskCall::Kind kind) {
      return std::find_if(calls.begin(), calls.end(),
                          [kind](const DiskCall& call) { return call.kind == kind; });
    };
    ASSERT_NE(at(DiskCall::Kind::Rename), calls.end());
    EXPECT_LT(at(DiskCall::Kind::Sync), at(DiskCall::Kind::Rename));
    EXPECT_EQ(TemporaryFolder::read(_target), _new);
  }
}

TEST_F(AtomicFilePowerTest, ANewNameThatMayBeLostIsNoSuccess) {
  DiskLog::failFolderSyncs(EIO, 1);
  AtomicFile file(_target, AtomicFile::Existing::Replace);
  EXPECT_TRUE(file.write(_new));
  EXPECT_FALSE(file.commit());
  DiskLog::failFolderSyncs(0, 0);
  EXPECT_EQ(file.failure(), "Input/output error");
  EXPECT_EQ(TemporaryFolder::read(_target), _new) << "whole all the same";
}

// As on some shares.
TEST_F(AtomicFilePowerTest, AFolderThatKnowsNoSyncIsNoFailure) {
  for (const int error : {EINVAL, EBADF, EOPNOTSUPP, ENOSYS}) {
    DiskLog::failFolderSyncs(error, 1);
    EXPECT_TRUE(save(_target)) << error;
    DiskLog::failFolderSyncs(0, 0);
  }
}

// ---- the disk itself: it finds an order that is wrong ----

/// Replaces by a rename, with a sync before or behind it or none.
bool replace(const fs::path& target, bool isSyncedBefore, bool isSyncedBehind) {
  const fs::path other = target.parent_path() / "other";
  const int file = open(other.c_str(), O_CREAT | O_WRONLY, 0600);
  const bool isDone =
      file >= 0 && writeAll(file, bytesOf("new")) && (!isSyncedBefore || fsync(file) == 0) &&
      std::rename(other.c_str(), target.c_str()) == 0 && (!isSyncedBehind || fsync(file) == 0);
  close(file);
  return isDone;
}

class CutDiskTest : public AtomicFilePowerTest {
 protected:
  void renew() {
    fs::remove(_target);
    _folder.file("x.WAV", _old);
    _number = numberOf(_target);
  }

  [[nodiscard]] CutDisk::Found found(const Save& save, CutDisk::Kind kind) {
    return disk(kind).any(callsOf(save));
  }
};

TEST_F(CutDiskTest, FindsARenameWithoutASync) {
  for (const auto kind : {CutDisk::Kind::Journal, CutDisk::Kind::Table}) {
    const Calls calls = callsOf([](const fs::path& to) { return replace(to, false, false); });
    const auto found = disk(kind).after(calls);
    EXPECT_THAT(found, Contains(bytesOf(""))) << show(found);
    EXPECT_THAT(found, Contains(bytesOf("n"))) << show(found);
    renew();
  }
}

TEST_F(CutDiskTest, FindsARenameBeforeTheSync) {
  for (const auto kind : {CutDisk::Kind::Journal, CutDisk::Kind::Table}) {
    const Calls calls = callsOf([](const fs::path& to) { return replace(to, false, true); });
    const auto found = disk(kind).any(calls);
    EXPECT_THAT(found, Contains(bytesOf(""))) << show(found);
    EXPECT_THAT(found, Contains(bytesOf("n"))) << show(found);
    EXPECT_THAT(disk(kind).after(calls), ElementsAre(bytesOf("new")));
    renew();
  }
}

TEST_F(CutDiskTest, FindsNothingWrongWithTheRightOrder) {
  const auto found = this->found([](const fs::path& to) { return replace(to, true, false); },
                                 CutDisk::Kind::Journal);
  EXPECT_THAT(found, ElementsAre(bytesOf("new"), _old)) << show(found);
}

TEST_F(CutDiskTest, FindsAnOldFileThatIsGivenUpBeforeTheNewNameIsKept) {
  const auto found =
      this->found([](const fs::path& to) { return replace(to, true, true); }, CutDisk::Kind::Table);
  EXPECT_THAT(found, Contains(CutDisk::kFreed)) << show(found);
}

TEST_F(CutDiskTest, FindsAFileThatIsRemovedFirst) {
  const auto found = this->found(
      [](const fs::path& to) { return unlink(to.c_str()) == 0 && replace(to, true, true); },
      CutDisk::Kind::Journal);
  EXPECT_THAT(found, Contains(std::nullopt)) << show(found);
}

TEST_F(CutDiskTest, FindsAFileThatIsWrittenOver) {
  const auto found = this->found(
      [](const fs::path& to) {
        const int file = open(to.c_str(), O_WRONLY);
        const bool isDone = writeAll(file, bytesOf("THE NEW ")) && fsync(file) == 0;
        return close(file) == 0 && isDone;
      },
      CutDisk::Kind::Journal);
  EXPECT_THAT(found, Contains(bytesOf("THE old one"))) << show(found);
  EXPECT_THAT(found, Contains(bytesOf("THE NEW one"))) << show(found);
}

TEST_F(CutDiskTest, KeepsWhatWasSynced) {
  const Calls calls = callsOf([](const fs::path& to) { return replace(to, true, true); });
  EXPECT_THAT(disk(CutDisk::Kind::Journal).after(calls), ElementsAre(bytesOf("new")));
  EXPECT_THAT(disk(CutDisk::Kind::Table).after(calls), ElementsAre(bytesOf("new")));
  EXPECT_THAT(disk(CutDisk::Kind::Table).after({}), ElementsAre(_old));
}

// A new file is not waited for, as with any copy: see docs/reliability.md.
TEST_F(AtomicFilePowerTest, MayLeaveANewFileShortForAWhile) {
  fs::remove(_target);
  const CutDisk empty(CutDisk::Kind::Journal, "x.WAV");
  const auto found = empty.any(callsOf(save));
  EXPECT_THAT(found, Contains(std::nullopt));
  EXPECT_THAT(found, Contains(_new));
  EXPECT_THAT(found, Not(Contains(_old)));
}

}  // namespace
