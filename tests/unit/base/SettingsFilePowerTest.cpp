// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/SettingsFile.h"
#include "support/CutDisk.h"
#include "support/DiskLog.h"
#include "support/TemporaryFolder.h"

using testing::ElementsAre;

namespace {

TEST(SettingsFilePowerTest, APowerCutLeavesTheOldOrTheNewSettings) {
  const TemporaryFolder folder;
  const std::filesystem::path path = folder.path() / "settings";
  ASSERT_TRUE(SettingsFile(path).set("FOLDER", "here"));
  const auto old = TemporaryFolder::read(path);
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  const CutDisk disk(CutDisk::Kind::Journal, "settings", status.st_ino, old);

  DiskLog::start();
  EXPECT_TRUE(SettingsFile(path).set("FOLDER", "there"));
  const auto calls = DiskLog::stop();
  EXPECT_THAT(disk.any(calls), ElementsAre(old, TemporaryFolder::read(path)));
}

}  // namespace
