// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/ManifestLock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>

#include "support/TemporaryFolder.h"

namespace {

using Kind = ManifestLock::Kind;
using Other = ManifestLock::Other;
using namespace std::chrono_literals;

class ManifestLockTest : public testing::Test {
 protected:
  [[nodiscard]] Other otherThan(Kind kind) const {
    return ManifestLock(_folder.path(), kind, 0ms).other();
  }

  TemporaryFolder _folder;
};

TEST_F(ManifestLockTest, ACopyKeepsEverybodyAway) {
  {
    const ManifestLock copy(_folder.path(), Kind::Copy);
    EXPECT_EQ(copy.other(), Other::Nobody);
    EXPECT_EQ(otherThan(Kind::Copy), Other::Copy);
    EXPECT_EQ(otherThan(Kind::Check), Other::Copy);
  }
  EXPECT_EQ(otherThan(Kind::Copy), Other::Nobody);
}

TEST_F(ManifestLockTest, ChecksKeepCopiesAwayAndNoChecks) {
  std::filesystem::create_directories(_folder.path() / "ascmhl");
  {
    const ManifestLock check(_folder.path(), Kind::Check);
    EXPECT_EQ(otherThan(Kind::Check), Other::Nobody);
    EXPECT_EQ(otherThan(Kind::Copy), Other::Check);
    EXPECT_EQ(otherThan(Kind::Check), Other::Nobody) << "a copy that was kept away keeps nobody";
  }
  EXPECT_EQ(otherThan(Kind::Copy), Other::Nobody);
}

TEST_F(ManifestLockTest, ACopyWaitsForACheckAndNotForACopy) {
  std::filesystem::create_directories(_folder.path() / "ascmhl");
  auto check = std::make_unique<const ManifestLock>(_folder.path(), Kind::Check);
  std::thread end([&check] {
    std::this_thread::sleep_for(20ms);
    check.reset();
  });
  const ManifestLock copy(_folder.path(), Kind::Copy, 10min);
  end.join();
  EXPECT_EQ(copy.other(), Other::Nobody);
  EXPECT_EQ(ManifestLock(_folder.path(), Kind::Copy, 10min).other(), Other::Copy);
}

TEST_F(ManifestLockTest, ACheckChangesNothing) {
  EXPECT_EQ(otherThan(Kind::Check), Other::Nobody);
  EXPECT_FALSE(std::filesystem::exists(_folder.path() / "ascmhl"));
  std::filesystem::create_directories(_folder.path() / "ascmhl");
  EXPECT_EQ(otherThan(Kind::Check), Other::Nobody);
  EXPECT_TRUE(std::filesystem::exists(_folder.path() / "ascmhl"));
  EXPECT_EQ(otherThan(Kind::Copy), Other::Nobody);
  EXPECT_FALSE(std::filesystem::exists(_folder.path() / "ascmhl")) << "nothing came into it";
}

}  // namespace
