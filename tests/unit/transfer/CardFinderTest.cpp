// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/CardFinder.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/TemporaryFolder.h"
#include "support/WaveBytes.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Volumes, each a folder of its own.
class CardFinderTest : public testing::Test {
 protected:
  std::filesystem::path volume(const std::string& name) const {
    std::filesystem::create_directories(_folder.path() / name);
    return _folder.path() / name;
  }
  void take(const std::string& name, const std::string& originator = "TARN J4") const {
    volume(std::filesystem::path(name).parent_path());
    const auto samples = WaveBytes::samples24({1, 2});
    _folder.file(name, WaveBytes().format24().bext(originator, "MSRAW=ON").data(samples).get());
  }
  [[nodiscard]] std::string path(const std::string& name) const {
    return (_folder.path() / name).string();
  }
  /// A list of what is mounted.
  [[nodiscard]] std::filesystem::path mountsOf(const std::vector<std::string>& lines) const {
    std::vector<std::byte> bytes;
    for (const std::string& line : lines) {
      for (const char letter : line + "\n") bytes.push_back(static_cast<std::byte>(letter));
    }
    return _folder.file("mounts", bytes);
  }

  TemporaryFolder _folder;
};

TEST_F(CardFinderTest, AVolumeWithARecordingAtItsTopOrInAFolderIsACard) {
  take("card/R0001.WAV");
  take("deep/DAY1/r0001.wav");
  EXPECT_TRUE(CardFinder::isCard(volume("card")));
  EXPECT_TRUE(CardFinder::isCard(volume("deep")));
}

TEST_F(CardFinderTest, OtherSoundAndOtherFilesMakeNone) {
  take("stick/a.WAV", "another");
  _folder.file("stick/b.WAV", {std::byte{'x'}});
  _folder.file("stick/c.txt", {});
  EXPECT_FALSE(CardFinder::isCard(volume("stick")));
  EXPECT_FALSE(CardFinder::isCard(volume("empty")));
  EXPECT_FALSE(CardFinder::isCard(_folder.path() / "none"));
  take("deep/a/b/R0001.WAV");
  EXPECT_FALSE(CardFinder::isCard(volume("deep"))) << "no search of a whole disk";
}

TEST_F(CardFinderTest, ACopyIsNoCard) {
  take("disk/R0001.WAV");
  volume("disk/ascmhl");
  take("backup/session/R0001.WAV");
  volume("backup/session/ascmhl");
  EXPECT_FALSE(CardFinder::isCard(volume("disk")));
  EXPECT_FALSE(CardFinder::isCard(volume("backup")));
}

TEST_F(CardFinderTest, OnlyWhatIsMountedForTheUserFromADeviceIsLookedAt) {
  for (const char* const name : {"users/J4 CARD", "users/B", "users/far", "elsewhere"}) {
    take(std::string(name) + "/R0001.WAV");
  }
  const std::string users = (_folder.path() / "users").string() + "/";
  const auto mounts =
      mountsOf({"36 28 8:1 / " + users + "J4\\040CARD rw,nosuid shared:1 - exfat /dev/sda1 rw",
                "37 28 8:2 / " + users + "B rw - vfat /dev/sdb1 rw",
                "38 28 8:3 / " + path("elsewhere") + " rw - ext4 /dev/sda3 rw",
                "39 28 0:5 / " + users + "far rw - nfs4 host:/far rw",
                "40 28 8:4 / " + users + "none rw - vfat /dev/sdc1 rw", "half a line"});
  EXPECT_THAT(CardFinder(mounts, {users}).find(),
              ElementsAre(path("users/J4 CARD"), path("users/B")));
  EXPECT_THAT(CardFinder(path("no list"), {users}).find(), IsEmpty());
}

TEST_F(CardFinderTest, AVolumeIsLookedIntoOnceAsLongAsItStaysMounted) {
  const std::string users = (_folder.path() / "users").string() + "/";
  volume("users/card");
  const std::string line = " 28 8:1 / " + users + "card rw - vfat /dev/sda1 rw";
  const auto mounts = mountsOf({"36" + line});
  CardFinder finder(mounts, {users});
  EXPECT_THAT(finder.find(), IsEmpty());
  take("users/card/R0001.WAV");
  EXPECT_THAT(finder.find(), IsEmpty());
  ASSERT_EQ(mountsOf({}), mounts);
  EXPECT_THAT(finder.find(), IsEmpty());
  ASSERT_EQ(mountsOf({"36" + line}), mounts);
  EXPECT_THAT(finder.find(), ElementsAre(path("users/card")));
}

}  // namespace
