// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/AtomicFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <vector>

#include "Saving.h"
#include "support/ByteBuilder.h"
#include "support/Confinement.h"
#include "support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

using Bytes = std::vector<std::byte>;
using testing::ElementsAre;
using testing::IsEmpty;

mode_t modeOf(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

class AtomicFileTest : public testing::Test {
 protected:
  [[nodiscard]] fs::path at(const char* name) const { return _folder.path() / name; }

  TemporaryFolder _folder;
};

TEST_F(AtomicFileTest, MakesANewFile) {
  EXPECT_EQ(save(at("new"), bytesOf("words"), kRefuse), "");
  EXPECT_EQ(TemporaryFolder::read(at("new")), bytesOf("words"));
  EXPECT_THAT(_folder.names(), ElementsAre("new"));
}

TEST_F(AtomicFileTest, MakesAnEmptyFile) {
  AtomicFile file(at("new"), kRefuse);
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(fs::file_size(at("new")), 0U);
}

TEST_F(AtomicFileTest, ReplacesAFile) {
  _folder.file("old", bytesOf("much longer than the new one"));
  EXPECT_EQ(save(at("old"), bytesOf("new"), kReplace), "");
  EXPECT_EQ(TemporaryFolder::read(at("old")), bytesOf("new"));
  EXPECT_THAT(_folder.names(), ElementsAre("old"));
}

TEST_F(AtomicFileTest, ShowsNothingBeforeTheCommit) {
  _folder.file("old", bytesOf("old"));
  {
    AtomicFile replacing(at("old"), kReplace);
    AtomicFile making(at("new"), kReplace);
    EXPECT_TRUE(replacing.write(bytesOf("other")));
    EXPECT_TRUE(making.write(bytesOf("other")));
    EXPECT_EQ(TemporaryFolder::read(at("old")), bytesOf("old"));
    EXPECT_FALSE(fs::exists(at("new")));
  }
  EXPECT_EQ(TemporaryFolder::read(at("old")), bytesOf("old"));
  EXPECT_THAT(_folder.names(), ElementsAre("old"));
}

TEST_F(AtomicFileTest, AppendsAndOverwrites) {
  AtomicFile file(at("new"), kRefuse);
  EXPECT_TRUE(file.write(bytesOf("0123")));
  EXPECT_TRUE(file.writeAt(1, bytesOf("xy")));
  EXPECT_TRUE(file.write(bytesOf("45")));
  EXPECT_TRUE(file.write({}));
  EXPECT_TRUE(file.commit());
  EXPECT_EQ(TemporaryFolder::read(at("new")), bytesOf("0xy345"));
}

TEST_F(AtomicFileTest, WritesNothingAfterTheCommit) {
  AtomicFile file(at("new"), kRefuse);
  EXPECT_TRUE(file.write(bytesOf("a")));
  EXPECT_TRUE(file.commit());
  EXPECT_FALSE(file.write(bytesOf("b")));
  EXPECT_FALSE(file.commit());
  EXPECT_EQ(TemporaryFolder::read(at("new")), bytesOf("a"));
}

TEST_F(AtomicFileTest, RefusesAnExistingFile) {
  _folder.file("old", bytesOf("old"));
  EXPECT_EQ(save(at("old"), bytesOf("new"), kRefuse), "File exists");
  EXPECT_EQ(TemporaryFolder::read(at("old")), bytesOf("old"));
  EXPECT_THAT(_folder.names(), ElementsAre("old"));
}

TEST_F(AtomicFileTest, RefusesAFileThatAppearsMeanwhile) {
  AtomicFile file(at("late"), kRefuse);
  EXPECT_TRUE(file.write(bytesOf("mine")));
  _folder.file("late", bytesOf("theirs"));
  EXPECT_FALSE(file.commit());
  EXPECT_EQ(file.failure(), "File exists");
  EXPECT_EQ(TemporaryFolder::read(at("late")), bytesOf("theirs"));
  EXPECT_THAT(_folder.names(), ElementsAre("late"));
}

TEST_F(AtomicFileTest, ReplacesAFileThatAppearsMeanwhile) {
  AtomicFile file(at("late"), kReplace);
  EXPECT_TRUE(file.write(bytesOf("mine")));
  _folder.file("late", bytesOf("theirs"));
  EXPECT_TRUE(file.commit()) << file.failure();
  EXPECT_EQ(TemporaryFolder::read(at("late")), bytesOf("mine"));
  EXPECT_THAT(_folder.names(), ElementsAre("late"));
}

TEST_F(AtomicFileTest, MakesAFileAnewThatVanishesMeanwhile) {
  _folder.file("gone", bytesOf("old"));
  AtomicFile file(at("gone"), kReplace);
  EXPECT_TRUE(file.write(bytesOf("new")));
  fs::remove(at("gone"));
  EXPECT_TRUE(file.commit()) << file.failure();
  EXPECT_EQ(TemporaryFolder::read(at("gone")), bytesOf("new"));
  EXPECT_THAT(_folder.names(), ElementsAre("gone"));
}

TEST_F(AtomicFileTest, LetsTheLastOfTwoWritersWin) {
  AtomicFile first(at("both"), kReplace);
  AtomicFile second(at("both"), kReplace);
  EXPECT_TRUE(first.write(bytesOf("first")) && second.write(bytesOf("second")));
  EXPECT_TRUE(second.commit());
  EXPECT_TRUE(first.commit());
  EXPECT_EQ(TemporaryFolder::read(at("both")), bytesOf("first"));
  EXPECT_THAT(_folder.names(), ElementsAre("both"));
}

TEST_F(AtomicFileTest, GivesANewFileTheModeOfTheUmask) {
  for (const mode_t mask : {mode_t{022}, mode_t{077}, mode_t{0}}) {
    const mode_t before = umask(mask);
    const std::string failure = save(at("new"), bytesOf("x"), kRefuse);
    umask(before);
    EXPECT_EQ(failure, "");
    EXPECT_EQ(modeOf(at("new")), 0666 & ~mask);
    fs::remove(at("new"));
  }
}

TEST_F(AtomicFileTest, KeepsThePermissionsOfAReplacedFile) {
  for (const mode_t mode : {mode_t{0600}, mode_t{0640}, mode_t{0666}, mode_t{0755}}) {
    _folder.file("old", bytesOf("old"));
    ASSERT_EQ(chmod(at("old").c_str(), mode), 0);
    EXPECT_EQ(save(at("old"), bytesOf("new"), kReplace), "");
    EXPECT_EQ(modeOf(at("old")), mode);
  }
}

TEST_F(AtomicFileTest, KeepsTheOwnerOfAReplacedFileWhereItMay) {
  _folder.file("old", bytesOf("old"));
  const bool mayGive = chown(at("old").c_str(), 65534, 65534) == 0;
  EXPECT_EQ(save(at("old"), bytesOf("new"), kReplace), "");
  struct stat status {};
  ASSERT_EQ(stat(at("old").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, mayGive ? 65534 : geteuid());
  EXPECT_EQ(status.st_gid, mayGive ? 65534 : getegid());
}

TEST_F(AtomicFileTest, ReplacesTheTargetOfALink) {
  fs::create_directory(at("far"));
  std::string content = "0";
  const std::vector<fs::path> targets{at("far") / "file", "far/file",
                                      "../" / _folder.path().filename() / "far/file"};
  for (const fs::path& to : targets) {
    content += "+";
    _folder.file("far/file", bytesOf("old"));
    fs::create_symlink(to, at("link"));
    EXPECT_EQ(save(at("link"), bytesOf(content), kReplace), "");
    EXPECT_EQ(fs::read_symlink(at("link")), to);
    EXPECT_EQ(TemporaryFolder::read(at("far") / "file"), bytesOf(content));
    EXPECT_FALSE(fs::is_symlink(at("far") / "file"));
    fs::remove(at("link"));
  }
  EXPECT_THAT(_folder.names(), ElementsAre("far"));
}

TEST_F(AtomicFileTest, FollowsAChainOfLinks) {
  _folder.file("file", bytesOf("old"));
  fs::create_symlink("file", at("one"));
  fs::create_symlink("one", at("two"));
  EXPECT_EQ(save(at("two"), bytesOf("new"), kReplace), "");
  EXPECT_EQ(TemporaryFolder::read(at("file")), bytesOf("new"));
  EXPECT_EQ(fs::read_symlink(at("two")), "one");
  EXPECT_EQ(fs::read_symlink(at("one")), "file");
}

TEST_F(AtomicFileTest, RefusesTheExistingTargetOfALink) {
  _folder.file("file", bytesOf("old"));
  fs::create_symlink("file", at("link"));
  EXPECT_EQ(save(at("link"), bytesOf("new"), kRefuse), "File exists");
  EXPECT_EQ(TemporaryFolder::read(at("file")), bytesOf("old"));
}

TEST_F(AtomicFileTest, MakesTheTargetOfADanglingLink) {
  fs::create_symlink("missing", at("link"));
  EXPECT_EQ(save(at("link"), bytesOf("new"), kReplace), "");
  EXPECT_EQ(fs::read_symlink(at("link")), "missing");
  EXPECT_EQ(TemporaryFolder::read(at("missing")), bytesOf("new"));
  EXPECT_THAT(_folder.names(), ElementsAre("link", "missing"));
}

TEST_F(AtomicFileTest, FailsOnALoopOfLinks) {
  fs::create_symlink("two", at("one"));
  fs::create_symlink("one", at("two"));
  EXPECT_EQ(save(at("one"), bytesOf("new"), kReplace), "Too many levels of symbolic links");
  EXPECT_EQ(fs::read_symlink(at("one")), "two");
  EXPECT_THAT(_folder.names(), ElementsAre("one", "two"));
}

TEST_F(AtomicFileTest, FailsOnAFolder) {
  fs::create_directory(at("folder"));
  fs::create_symlink("folder", at("link"));
  EXPECT_EQ(save(at("folder"), bytesOf("x"), kReplace), "Is a directory");
  EXPECT_EQ(save(at("folder") / "", bytesOf("x"), kReplace), "Is a directory");
  EXPECT_EQ(save(at("link"), bytesOf("x"), kReplace), "Is a directory");
  EXPECT_EQ(save(at("missing") / "", bytesOf("x"), kReplace), "Is a directory");
  EXPECT_THAT(_folder.names(), ElementsAre("folder", "link"));
}

TEST_F(AtomicFileTest, FailsOnPipesAndDevices) {
  ASSERT_EQ(mkfifo(at("pipe").c_str(), 0666), 0);
  EXPECT_EQ(save(at("pipe"), bytesOf("x"), kReplace), "Not a regular file");
  EXPECT_TRUE(fs::is_fifo(at("pipe")));
  const AtomicFile device("/dev/null", kReplace);
  EXPECT_EQ(device.failure(), "Not a regular file");
}

TEST_F(AtomicFileTest, TellsWhatIsWrongWithThePath) {
  _folder.file("file", bytesOf("old"));
  EXPECT_EQ(save(at("missing") / "new", bytesOf("x"), kReplace), "No such file or directory");
  EXPECT_EQ(save(at("file") / "new", bytesOf("x"), kReplace), "Not a directory");
  EXPECT_EQ(save(at(std::string(300, 'n').c_str()), bytesOf("x"), kReplace), "File name too long");
  EXPECT_THAT(_folder.names(), ElementsAre("file"));
}

TEST_F(AtomicFileTest, TakesTheWorkingFolderForABareName) {
  const int result = Confinement::run([this] {
    fs::current_path(_folder.path());
    return save("bare", bytesOf("x"), kReplace).empty() &&
                   save("bare", bytesOf("y"), kReplace).empty()
               ? 0
               : 1;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(TemporaryFolder::read(at("bare")), bytesOf("y"));
}

TEST_F(AtomicFileTest, KnowsWhetherThereIsRoom) {
  AtomicFile file(at("new"), kRefuse);
  EXPECT_TRUE(file.hasRoomFor(0));
  EXPECT_TRUE(file.hasRoomFor(1000));
  EXPECT_FALSE(file.hasRoomFor(std::uint64_t{1} << 60));
  EXPECT_EQ(file.failure(), "No space left on device");
  EXPECT_FALSE(file.write(bytesOf("x")));
  EXPECT_FALSE(file.commit());
  EXPECT_THAT(_folder.names(), IsEmpty());
}

TEST_F(AtomicFileTest, WhatIsExpectedIsNoPartOfTheFile) {
  _folder.file("old", bytesOf("old"));
  for (const char* name : {"new", "old"}) {
    AtomicFile file(at(name), kReplace);
    file.expect(1 << 20);
    EXPECT_TRUE(file.write(bytesOf("words")));
    EXPECT_TRUE(file.commit()) << file.failure();
    EXPECT_EQ(TemporaryFolder::read(at(name)), bytesOf("words"));
  }
}

}  // namespace
