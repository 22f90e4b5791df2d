// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What a disk may have forgotten when the power goes after a manifest was written.

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "CardFixture.h"
#include "support/DiskLog.h"

namespace {

namespace fs = std::filesystem;

using CardCopyPowerTest = CardFixture;
using Calls = std::vector<DiskCall>;

std::uint64_t numberOf(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status.st_ino;
}

// Where the first manifest that is no chain got its name.
Calls::const_iterator firstManifest(const Calls& calls) {
  return std::find_if(calls.begin(), calls.end(), [](const DiskCall& call) {
    return call.kind == DiskCall::Kind::Name && call.name.ends_with(".mhl");
  });
}

Calls::const_iterator naming(const Calls& calls, const std::string& name) {
  return std::find_if(calls.begin(), calls.end(), [&](const DiskCall& call) {
    return (call.kind == DiskCall::Kind::Name && call.name == name) ||
           (call.kind == DiskCall::Kind::Rename && call.newName == name);
  });
}

// Where a text is first written to the disk, in whatever file.
Calls::const_iterator writing(const Calls& calls, std::string_view text) {
  return std::find_if(calls.begin(), calls.end(), [&](const DiskCall& call) {
    return !call.bytes.empty() &&
           memmem(call.bytes.data(), call.bytes.size(), text.data(), text.size()) != nullptr;
  });
}

// Whether all that was written to a file before a call had been synced by then.
bool isSynced(const Calls& calls, Calls::const_iterator before, std::uint64_t file) {
  bool isIt = false;
  for (auto call = calls.begin(); call != before; ++call) {
    if (call->file != file) continue;
    if (call->kind == DiskCall::Kind::Write) isIt = false;
    if (call->kind == DiskCall::Kind::Sync) isIt = true;
  }
  return isIt;
}

TEST_F(CardCopyPowerTest, ATakesBytesAreSyncedBeforeItsNameAndThatBeforeAManifestTellsOfIt) {
  DiskLog::start();
  EXPECT_TRUE(copy());
  const Calls calls = DiskLog::stop();
  for (const char* const take : {"R0001.WAV", "R0002.wav", "DAY2/R0003.WAV"}) {
    const fs::path target = home() / take;
    const auto named = naming(calls, target.filename());
    ASSERT_NE(named, calls.end()) << take;
    EXPECT_TRUE(isSynced(calls, named, numberOf(target))) << take;
    const auto told = writing(calls, take);
    ASSERT_NE(told, calls.end()) << take;
    ASSERT_LT(named, told) << take;
    const std::uint64_t folder = numberOf(target.parent_path());
    EXPECT_TRUE(std::any_of(named, told,
                            [&](const DiskCall& call) {
                              return call.kind == DiskCall::Kind::Sync && call.file == folder;
                            }))
        << take << " has a name that may be forgotten";
  }
}

TEST_F(CardCopyPowerTest, TheNamesOfAllFoldersAreSyncedBeforeTheManifest) {
  fs::create_directories(card() / "A" / "B");
  put("card/A/B/R0004.WAV", Bytes(5));  // the first one
  const fs::path destination = _folder.path() / "new" / "home";
  DiskLog::start();
  CardCopy job(card(), destination);
  EXPECT_TRUE(run(job));
  const Calls calls = DiskLog::stop();
  const auto manifest = firstManifest(calls);
  ASSERT_NE(manifest, calls.end());
  for (const fs::path& folder : {destination / "A" / "B", destination / "A", destination,
                                 destination.parent_path(), _folder.path()}) {
    const std::uint64_t number = numberOf(folder);
    const bool isSynced = std::any_of(calls.begin(), manifest, [&](const DiskCall& call) {
      return call.kind == DiskCall::Kind::Sync && call.file == number;
    });
    EXPECT_TRUE(isSynced) << folder;
  }
}

// The system tells of such a failure once: a second sync says nothing of those names.
TEST_F(CardCopyPowerTest, WhereNamesAreNotSyncedNoManifestTellsOfThem) {
  put("card/DAY2/R0004.WAV", {});
  fs::resize_file(card() / "DAY2/R0004.WAV", 1 << 27);  // a manifest is due in the middle
  CardCopy job(card(), home());
  ASSERT_EQ(job.prepare(), "");
  DiskLog::failFolderSyncs(EIO, 1);
  EXPECT_FALSE(job.run());
  DiskLog::failFolderSyncs(0, 0);
  EXPECT_EQ(job.failure(), "The manifest cannot be written: Input/output error");
  EXPECT_EQ(job.obstacle(), CardCopy::Obstacle::ManifestUnwritable);
  EXPECT_EQ(homeNames(), (std::vector<std::string>{"DAY2/R0003.WAV", "DAY2/R0004.WAV"}));
  EXPECT_FALSE(ManifestFolder(home()).isThere());
  EXPECT_TRUE(copy());
  EXPECT_EQ(_told[0], "DAY2/R0003.WAV kept");
  EXPECT_TRUE(isRight());
}

TEST_F(CardCopyPowerTest, AManifestWhoseNameIsNotSyncedIsToldAsNotWritten) {
  fs::create_directories(home() / "ascmhl");
  ManifestFolder manifests(home());
  DiskLog::failFolderSyncs(EIO, 1);
  EXPECT_EQ(manifests.save({}), "Input/output error");
  EXPECT_EQ(manifests.save({}), "");
  DiskLog::failFolderSyncs(EIO, 1);
  EXPECT_EQ(manifests.finish(), "Input/output error");
  DiskLog::failFolderSyncs(0, 0);
}

// The second one stands there when its folder cannot be synced.
TEST_F(CardCopyPowerTest, AManifestThatMayBeLostIsNoneThatSomebodyChanged) {
  fs::create_directories(home() / "ascmhl");
  ManifestFolder manifests(home());
  Manifest manifest;
  EXPECT_EQ(manifests.save(manifest), "");
  manifest.host = "another";
  DiskLog::failFolderSyncs(EIO, 1);
  EXPECT_EQ(manifests.save(manifest), "Input/output error");
  EXPECT_EQ(manifests.finish(), "");
  const ManifestFolder found(home());
  EXPECT_THAT(found.problems(), testing::IsEmpty());
  DiskLog::failFolderSyncs(0, 0);
}

TEST_F(CardCopyPowerTest, AFolderWhoseNameIsNotSyncedIsNotCopiedInto) {
  DiskLog::failFolderSyncs(EIO, 1);
  EXPECT_EQ(CardCopy(card(), home()).prepare(), "The folder cannot be made: Input/output error");
  DiskLog::failFolderSyncs(0, 0);
}

TEST_F(CardCopyPowerTest, AFileSystemThatSyncsNoFoldersIsGood) {
  for (const int error : {EINVAL, EOPNOTSUPP}) {
    fs::remove_all(home());
    DiskLog::failFolderSyncs(error, 1000);
    EXPECT_TRUE(copy()) << error;
    DiskLog::failFolderSyncs(0, 0);
    EXPECT_TRUE(isRight());
  }
}

}  // namespace
