// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "queue/MediumPace.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "export/ProcessorShare.h"
#include "support/TemporaryFolder.h"

namespace {

/// A disk with a partition, as the kernel tells of it.
class MediumPaceTest : public testing::Test {
 protected:
  /// The partition's folder.
  std::filesystem::path disk(const std::string& name, bool isRemovable, bool isRotational) const {
    const auto disk = _system.path() / "devices" / name;
    std::filesystem::create_directories(disk / "queue");
    std::filesystem::create_directories(disk / (name + "p1"));
    std::ofstream(disk / "removable") << isRemovable << '\n';
    std::ofstream(disk / "queue" / "rotational") << isRotational << '\n';
    std::ofstream(disk / (name + "p1") / "partition") << "1\n";
    return disk / (name + "p1");
  }
  /// A disk that the kernel's mapper makes of other devices.
  std::filesystem::path mapped(const std::string& name,
                               const std::vector<std::filesystem::path>& devices,
                               bool isRotational = false) const {
    const auto disk = this->disk(name, false, isRotational).parent_path();
    std::filesystem::remove_all(disk / (name + "p1"));
    std::filesystem::create_directories(disk / "slaves");
    for (const auto& device : devices) {
      std::filesystem::create_symlink(device, disk / "slaves" / device.filename());
    }
    return disk;
  }
  /// Has this device hold the folder of the takes.
  void hold(const std::filesystem::path& device) const {
    struct stat status {};
    ASSERT_EQ(0, stat(_takes.path().c_str(), &status));
    const auto folder = _system.path() / "dev/block";
    std::filesystem::create_directories(folder);
    const std::string number = fmt::format("{}:{}", major(status.st_dev), minor(status.st_dev));
    std::filesystem::create_symlink(device, folder / number);
  }

  TemporaryFolder _system;
  TemporaryFolder _takes;
};

TEST_F(MediumPaceTest, CardsSticksAndTurningDisksAreSlow) {
  EXPECT_FALSE(MediumPace::isSlow(disk("nvme0n1", false, false)));
  EXPECT_FALSE(MediumPace::isSlow(disk("sda", false, false).parent_path()));
  EXPECT_TRUE(MediumPace::isSlow(disk("mmcblk0", false, false)));
  EXPECT_TRUE(MediumPace::isSlow(disk("sdb", true, false)));
  EXPECT_TRUE(MediumPace::isSlow(disk("sdc", false, true)));
  EXPECT_TRUE(MediumPace::isSlow(disk("sdd", false, true).parent_path()));
}

TEST_F(MediumPaceTest, WhetherTheDiskOfAVirtualMachineTurnsIsNotKnown) {
  EXPECT_FALSE(MediumPace::isSlow(disk("vda", false, true).parent_path()));
  EXPECT_FALSE(MediumPace::isSlow(disk("vdb", false, true))) << "a partition";
  EXPECT_FALSE(MediumPace::isSlow(disk("xvda", false, true)));
  EXPECT_FALSE(MediumPace::isSlow(mapped("dm-0", {disk("vdc", false, true)}, true)));
  EXPECT_TRUE(MediumPace::isSlow(disk("vdd", true, true)));
  EXPECT_TRUE(MediumPace::isSlow(disk("sda", false, true)));
  EXPECT_TRUE(MediumPace::isSlow(mapped("dm-1", {disk("sdb", false, true)}, true)));
  EXPECT_TRUE(MediumPace::isSlow(disk("svd", false, true))) << "another name";
}

TEST_F(MediumPaceTest, AnEncryptedStickIsAsSlowAsAStick) {
  const auto stick = disk("sdb", true, false);
  const auto fast = disk("nvme0n1", false, false);
  EXPECT_TRUE(MediumPace::isSlow(mapped("dm-0", {stick})));
  EXPECT_FALSE(MediumPace::isSlow(mapped("dm-1", {fast})));
  EXPECT_FALSE(MediumPace::isSlow(mapped("dm-2", {})));
  const auto both = mapped("dm-3", {fast, stick});
  EXPECT_TRUE(MediumPace::isSlow(both)) << "one of them is enough";
  EXPECT_TRUE(MediumPace::isSlow(mapped("dm-4", {both}))) << "a volume in it";
  EXPECT_FALSE(MediumPace::isSlow(mapped("dm-5", {_system.path() / "gone"})));
}

TEST_F(MediumPaceTest, ASlowMediumHasOneAtATime) {
  hold(disk("mmcblk0", false, false));
  EXPECT_EQ(1U, MediumPace::atOnce(_takes.path(), _system.path()));
}

TEST_F(MediumPaceTest, AFastOneHasOneAProcessor) {
  hold(disk("nvme0n1", false, false));
  EXPECT_EQ(ProcessorShare::processors(), MediumPace::atOnce(_takes.path(), _system.path()));
}

TEST_F(MediumPaceTest, OneThatIsNotKnownCountsAsFastAndOneThatIsNotThereAsSlow) {
  EXPECT_EQ(ProcessorShare::processors(), MediumPace::atOnce(_takes.path(), _system.path()));
  EXPECT_EQ(1U, MediumPace::atOnce(_takes.path() / "none", _system.path()));
}

}  // namespace
