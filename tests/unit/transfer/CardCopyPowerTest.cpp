// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// What a disk may have forgotten when the power goes after a manifest was written.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <string>
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

}  // namespace
