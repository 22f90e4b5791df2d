// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// On a file system that knows no unnamed files the temporary file has a name. The same promises
// hold, and what a killed run leaves behind goes with the next save.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <functional>
#include <string_view>
#include <vector>

#include "Saving.h"
#include "export/AtomicFile.h"
#include "support/ByteBuilder.h"
#include "support/Confinement.h"
#include "support/TemporaryFolder.h"
#include "support/UncountedLinks.h"

namespace fs = std::filesystem;

namespace {

using Bytes = std::vector<std::byte>;
using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

bool isTemporary(const std::string& name) {
  return name.starts_with(".mixdeck-") && name.ends_with(".part");
}

int withoutUnnamedFiles(const std::function<bool()>& work) {
  return Confinement::run([&] { return Confinement::refuseUnnamedFiles() && work() ? 0 : 1; });
}

class AtomicFileNamedTest : public testing::Test {
 protected:
  [[nodiscard]] fs::path at(const std::string& name) const { return _folder.path() / name; }

  /// What a run leaves behind that is killed while it writes.
  Names leftovers() const {
    const int result = withoutUnnamedFiles([this] {
      AtomicFile file(at("never"), kReplace);
      return file.write(bytesOf("half")) && raise(SIGKILL) == 0;
    });
    EXPECT_EQ(result, 1000 + SIGKILL);
    return _folder.names();
  }

  TemporaryFolder _folder;
};

TEST_F(AtomicFileNamedTest, ShowsOnlyAHiddenNameWhileWriting) {
  EXPECT_EQ(withoutUnnamedFiles([this] {
              AtomicFile file(at("new"), kRefuse);
              const Names names = _folder.names();
              return file.write(bytesOf("x")) && names.size() == 1 && isTemporary(names[0]) &&
                     file.commit() && _folder.names() == Names{"new"};
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(at("new")), bytesOf("x"));
}

TEST_F(AtomicFileNamedTest, ReplacesAndKeepsPermissions) {
  _folder.file("old", bytesOf("old"));
  ASSERT_EQ(chmod(at("old").c_str(), 0640), 0);
  EXPECT_EQ(withoutUnnamedFiles([this] { return save(at("old"), bytesOf("n"), kReplace).empty(); }),
            0);
  EXPECT_EQ(TemporaryFolder::read(at("old")), bytesOf("n"));
  struct stat status {};
  ASSERT_EQ(stat(at("old").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
  EXPECT_THAT(_folder.names(), ElementsAre("old"));
}

TEST_F(AtomicFileNamedTest, GivesANewFileTheModeOfTheUmask) {
  EXPECT_EQ(withoutUnnamedFiles([this] {
              umask(027);
              return save(at("new"), bytesOf("n"), kReplace).empty();
            }),
            0);
  struct stat status {};
  ASSERT_EQ(stat(at("new").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
}

TEST_F(AtomicFileNamedTest, LeavesNothingWithoutACommit) {
  EXPECT_EQ(withoutUnnamedFiles([this] {
              const AtomicFile file(at("new"), kRefuse);
              return file.failure().empty();
            }),
            0);
  EXPECT_THAT(_folder.names(), IsEmpty());
}

TEST_F(AtomicFileNamedTest, RefusesAFileThatAppearsMeanwhile) {
  EXPECT_EQ(withoutUnnamedFiles([this] {
              AtomicFile file(at("late"), kRefuse);
              _folder.file("late", bytesOf("theirs"));
              return !file.commit() && file.failure() == "File exists";
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(at("late")), bytesOf("theirs"));
  EXPECT_THAT(_folder.names(), ElementsAre("late"));
}

// FAT knows no rename that refuses either.
TEST_F(AtomicFileNamedTest, RefusesAFileWhereRenameCannot) {
  EXPECT_EQ(withoutUnnamedFiles([this] {
              if (!Confinement::failSystemCall(SYS_renameat2, EINVAL)) return false;
              AtomicFile file(at("late"), kRefuse);
              _folder.file("late", bytesOf("theirs"));
              return !file.commit() && file.failure() == "File exists" &&
                     save(at("new"), bytesOf("n"), kRefuse).empty();
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(at("late")), bytesOf("theirs"));
  EXPECT_THAT(_folder.names(), ElementsAre("late", "new"));
}

TEST_F(AtomicFileNamedTest, LeavesNothingWhenTheRenameFails) {
  _folder.file("old", bytesOf("old"));
  EXPECT_EQ(withoutUnnamedFiles([this] {
              return Confinement::failRenames(EIO) &&
                     save(at("old"), bytesOf("n"), kReplace) == "Input/output error" &&
                     save(at("new"), bytesOf("n"), kRefuse) == "Input/output error";
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(at("old")), bytesOf("old"));
  EXPECT_THAT(_folder.names(), ElementsAre("old"));
}

TEST_F(AtomicFileNamedTest, SavesWhereNoLinksAreCounted) {
  EXPECT_EQ(withoutUnnamedFiles([this] {
              const UncountedLinks links;
              return save(at("new"), bytesOf("n"), kRefuse).empty();
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(at("new")), bytesOf("n"));
  EXPECT_THAT(_folder.names(), ElementsAre("new"));
}

TEST_F(AtomicFileNamedTest, LeavesNothingOnAFullDisk) {
  EXPECT_EQ(withoutUnnamedFiles([this] {
              return Confinement::limitFileSize(1000) &&
                     save(at("new"), Bytes(2000), kRefuse) == "File too large";
            }),
            0);
  EXPECT_THAT(_folder.names(), IsEmpty());
}

TEST_F(AtomicFileNamedTest, RemovesWhatAKilledRunLeft) {
  const Names left = leftovers();
  ASSERT_EQ(left.size(), 1U);
  EXPECT_TRUE(isTemporary(left[0])) << left[0];
  EXPECT_EQ(withoutUnnamedFiles([this] { return save(at("new"), bytesOf("n"), kRefuse).empty(); }),
            0);
  EXPECT_THAT(_folder.names(), ElementsAre("new"));
}

TEST_F(AtomicFileNamedTest, RemovesWhatAKilledRunLeftWhenReplacingElsewhereToo) {
  ASSERT_EQ(leftovers().size(), 1U);
  _folder.file("old", bytesOf("old"));
  EXPECT_EQ(save(at("old"), bytesOf("n"), kReplace), "");
  EXPECT_THAT(_folder.names(), ElementsAre("old"));
}

TEST_F(AtomicFileNamedTest, LeavesTheFilesOfOthersAlone) {
  const Names theirs{".mixdeck-0123456789abcdef.tmp", ".mixdeck-mine.part",
                     "mixdeck-0123456789abcdef.part"};
  for (const std::string& name : theirs) _folder.file(name, bytesOf("theirs"));
  EXPECT_EQ(withoutUnnamedFiles([this] { return save(at("new"), bytesOf("n"), kRefuse).empty(); }),
            0);
  Names all = theirs;
  all.emplace_back("new");
  std::sort(all.begin(), all.end());
  EXPECT_EQ(_folder.names(), all);
}

TEST_F(AtomicFileNamedTest, LeavesAFileAloneThatIsBeingWritten) {
  EXPECT_EQ(withoutUnnamedFiles([this] {
              AtomicFile first(at("first"), kRefuse);
              AtomicFile second(at("second"), kRefuse);
              return first.write(bytesOf("1")) && second.write(bytesOf("2")) &&
                     _folder.names().size() == 2 && second.commit() && first.commit();
            }),
            0);
  EXPECT_EQ(TemporaryFolder::read(at("first")), bytesOf("1"));
  EXPECT_EQ(TemporaryFolder::read(at("second")), bytesOf("2"));
  EXPECT_THAT(_folder.names(), ElementsAre("first", "second"));
}

// Whoever asks first whether the name is free is told that it is: the file appears right after.
bool seeNothing() {
  bool done = Confinement::failSystemCall(SYS_renameat2, EINVAL) &&
              Confinement::failSystemCall(SYS_faccessat, ENOENT);
#ifdef SYS_access
  done = done && Confinement::failSystemCall(SYS_access, ENOENT);
#endif
  return done;
}

bool failLinks() {
  bool done = Confinement::failSystemCall(SYS_linkat, EPERM);
#ifdef SYS_link
  done = done && Confinement::failSystemCall(SYS_link, EPERM);
#endif
  return done;
}

TEST_F(AtomicFileNamedTest, NeverReplacesAFileThatAppearsAtTheLastMoment) {
  for (const bool hasLinks : {true, false}) {
    EXPECT_EQ(withoutUnnamedFiles([this, hasLinks] {
                if (!seeNothing() || (!hasLinks && !failLinks())) return false;
                AtomicFile file(at("late"), kRefuse);
                _folder.file("late", bytesOf("theirs"));
                return !file.commit() && file.failure() == "File exists" &&
                       save(at(hasLinks ? "a" : "b"), bytesOf("n"), kRefuse).empty();
              }),
              0);
    EXPECT_EQ(TemporaryFolder::read(at("late")), bytesOf("theirs"));
    fs::remove(at("late"));
  }
  EXPECT_EQ(TemporaryFolder::read(at("a")), bytesOf("n"));
  EXPECT_EQ(TemporaryFolder::read(at("b")), bytesOf("n"));
  EXPECT_THAT(_folder.names(), ElementsAre("a", "b"));
}

}  // namespace
