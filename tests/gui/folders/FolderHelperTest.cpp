// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FolderHelper.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <linux/magic.h>
#include <sys/stat.h>

#include <ctime>
#include <filesystem>

#include "folders/FolderLister.h"
#include "support/LogLines.h"
#include "support/SlowReads.h"
#include "support/TemporaryFolder.h"

namespace {

using testing::ElementsAre;

class Folder : public testing::Test {
 protected:
  void add(const std::string& name) const { folder.file(name, {}); }
  void addFolder(const std::string& name) const {
    std::filesystem::create_directory(folder.path() / name);
  }
  [[nodiscard]] std::vector<std::string> listed() const {
    std::vector<std::string> names;
    const FolderHelper helper(folder.path());
    for (const WavItem& item : helper.files()) {
      names.push_back((item.isFolder ? "/" : "") + item.fileName.toStdString());
    }
    return names;
  }
  /// Times of the folder as they would be long after a change. The moment at which they were put
  /// back is another one at each call, however coarse the file system's clock is.
  void makeOld() const {
    const timespec before = putBackAt();
    do {
      setChanged({1'000'000'000, 0});
    } while (isSame(before, putBackAt()));
  }
  /// As if the folder had changed just now, however slow what follows is.
  void makeYoung() const { setChanged({std::time(nullptr) + 3600, 0}); }
  void setChanged(timespec time) const {
    const timespec times[2] = {time, time};
    ASSERT_EQ(utimensat(AT_FDCWD, folder.path().c_str(), times, 0), 0);
  }
  [[nodiscard]] timespec putBackAt() const {
    struct stat status {};
    stat(folder.path().c_str(), &status);
    return status.st_ctim;
  }
  static bool isSame(const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
  }

  LogLines log;
  TemporaryFolder folder;
};

TEST_F(Folder, IsEmptyWithoutRecordingsAndFolders) {
  EXPECT_THAT(listed(), ElementsAre());
  add("notes.txt");
  EXPECT_THAT(listed(), ElementsAre());
}

TEST_F(Folder, ListsFoldersFirstThenFilesInPlainOrder) {
  for (const char* name : {"a.wav", "B.wav", "9.wav", "10.wav"}) add(name);
  for (const char* name : {"zoo", "Alps", "10"}) addFolder(name);
  EXPECT_THAT(listed(), ElementsAre("/10", "/Alps", "/zoo", "10.wav", "9.wav", "B.wav", "a.wav"));
}

TEST_F(Folder, TakesWavInAnyCaseAndNothingElse) {
  for (const char* name :
       {"1.WAV", "2.Wav", "3.wav", "4.wave", "5.wav.txt", "wav", "6.bwf", "7."}) {
    add(name);
  }
  EXPECT_THAT(listed(), ElementsAre("1.WAV", "2.Wav", "3.wav"));
}

TEST_F(Folder, HidesWhatBeginsWithADot) {
  for (const char* name : {".wav", ".take.wav"}) add(name);
  addFolder(".cache");
  EXPECT_THAT(listed(), ElementsAre());
}

TEST_F(Folder, ListsAFolderNamedLikeARecordingButNoApplications) {
  for (const char* name : {"Takes.wav", "Tools.app", "More.APP", "Plain"}) addFolder(name);
  EXPECT_THAT(listed(), ElementsAre("/Plain", "/Takes.wav"));
}

TEST_F(Folder, FollowsLinksAndSkipsBrokenOnes) {
  TemporaryFolder elsewhere;
  std::filesystem::create_directory_symlink(elsewhere.path(), folder.path() / "linked");
  std::filesystem::create_symlink(folder.path() / "nowhere", folder.path() / "broken.wav");
  EXPECT_THAT(listed(), ElementsAre("/linked"));
}

TEST_F(Folder, SeesWhatALinkLeadsToComeAndGo) {
  TemporaryFolder elsewhere;
  std::filesystem::create_symlink(elsewhere.path() / "take.wav", folder.path() / "linked.wav");
  makeOld();
  const auto before = std::make_shared<const FolderHelper>(folder.path());
  EXPECT_THAT(listed(), ElementsAre());
  elsewhere.file("take.wav", {});
  const auto with = FolderLister::answerTo({folder.path(), {}, before});
  EXPECT_FALSE(with.isSame);
  EXPECT_EQ(with.listing->files().size(), 1U);
  std::filesystem::remove(elsewhere.path() / "take.wav");
  EXPECT_FALSE(FolderLister::answerTo({folder.path(), {}, with.listing}).isSame);
}

TEST_F(Folder, GoesOnWhereReadingFailsOnce) {
  for (const char* name : {"a.wav", "b.wav"}) add(name);
  SlowReads::limit(folder.path().string(), 0);
  SlowReads::breakListings(1);
  EXPECT_THAT(listed(), ElementsAre("a.wav", "b.wav"));
  EXPECT_THAT(log.get(), ElementsAre("eeee"));
  SlowReads::reset();
}

TEST_F(Folder, GivesUpWhereReadingGoesOnFailing) {
  add("a.wav");
  SlowReads::limit(folder.path().string(), 0);
  SlowReads::breakListings(1'000'000);
  const FolderHelper helper(folder.path());
  EXPECT_EQ(helper.failure(), "Input/output error");
  SlowReads::reset();
}

TEST_F(Folder, TellsWhereAnEntryIsAndHowItLooks) {
  addFolder("Bells");
  // A name that is no UTF-8 stays one that can be opened.
  add("caf\xe9.wav");
  const FolderHelper helper(folder.path());
  ASSERT_EQ(helper.files().size(), 2U);
  EXPECT_EQ(helper.files()[0].fullPath, (folder.path() / "Bells").string());
  EXPECT_EQ(helper.files()[0].icon, "folder");
  EXPECT_EQ(helper.files()[1].icon, "wav_file");
  EXPECT_TRUE(std::filesystem::exists(helper.files()[1].fullPath));
  EXPECT_EQ(helper.folderPath(), folder.path());
}

TEST_F(Folder, IsEmptyAndLoggedWhenItCannotBeRead) {
  add("file");
  const FolderHelper helper(folder.path() / "file");
  EXPECT_TRUE(helper.files().empty());
  EXPECT_EQ(helper.failure(), "Not a directory");
  EXPECT_THAT(log.get(), ElementsAre("eeee"));
}

TEST_F(Folder, IsNotReadIntoItsSubFolders) {
  addFolder("inner");
  add("inner/deep.wav");
  EXPECT_THAT(listed(), ElementsAre("/inner"));
}

TEST_F(Folder, GrabsAnewAndInTheFileSystemsOrder) {
  add("b.wav");
  FolderHelper helper(folder.path());
  add("a.wav");
  helper.grabWavFiles();
  ASSERT_EQ(helper.files().size(), 2U);
  helper.sortFileList();
  EXPECT_EQ(helper.files()[0].fileName, "a.wav");
}

TEST_F(Folder, IsNotTrustedToBeUnchangedRightAfterAChange) {
  add("a.wav");
  makeYoung();
  EXPECT_FALSE(FolderHelper(folder.path()).isCurrent());
}

TEST_F(Folder, IsTrustedToBeUnchangedLaterUntilSomethingHappens) {
  add("a.wav");
  makeOld();
  const FolderHelper helper(folder.path());
  EXPECT_TRUE(helper.isCurrent());
  add("b.wav");
  EXPECT_FALSE(helper.isCurrent());
  makeOld();
  EXPECT_FALSE(helper.isCurrent()) << "put back, but not at the same moment";
}

// FAT has no room for the times of its topmost folder.
TEST_F(Folder, IsNotTrustedToBeUnchangedWithoutATime) {
  add("a.wav");
  setChanged({0, 0});
  EXPECT_FALSE(FolderHelper(folder.path()).isCurrent());
}

TEST_F(Folder, TimesAreTrustedOnlyWhereTheyAreKnownToBeKept) {
  constexpr std::uint32_t kCluster = 0x01161970;
  const std::vector<std::uint32_t> kept = {EXT4_SUPER_MAGIC, BTRFS_SUPER_MAGIC, MSDOS_SUPER_MAGIC};
  const std::vector<std::uint32_t> others = {NFS_SUPER_MAGIC,   AFS_FS_MAGIC, CEPH_SUPER_MAGIC,
                                             OCFS2_SUPER_MAGIC, kCluster,     0};
  EXPECT_TRUE(std::ranges::all_of(kept, FolderStamp::keepsFolderTimes));
  EXPECT_TRUE(std::ranges::none_of(others, FolderStamp::keepsFolderTimes));
}

TEST_F(Folder, AnswersWithWhatIsKnownWhereNothingHasChanged) {
  add("a.wav");
  makeYoung();
  const auto known = std::make_shared<const FolderHelper>(folder.path());
  const auto answer = FolderLister::answerTo({folder.path(), {}, known});
  EXPECT_TRUE(answer.isSame);
  EXPECT_NE(answer.listing, known) << "listed again, since the change is young";
  add("b.wav");
  EXPECT_FALSE(FolderLister::answerTo({folder.path(), {}, known}).isSame);
}

TEST_F(Folder, AnswersWithTheFallbackWhereNothingIsThere) {
  TemporaryFolder fallback;
  fallback.file("here.wav", {});
  const auto gone = folder.path() / "gone";
  const auto answer = FolderLister::answerTo({gone, {gone, fallback.path()}, nullptr});
  EXPECT_EQ(answer.listing->folderPath(), fallback.path());
  EXPECT_EQ(answer.listing->files().size(), 1U);
  EXPECT_FALSE(answer.isSame);
}

TEST_F(Folder, OfAnotherPathIsNeverTheSame) {
  TemporaryFolder other;
  const auto known = std::make_shared<const FolderHelper>(folder.path());
  EXPECT_FALSE(FolderLister::answerTo({other.path(), {}, known}).isSame);
}

}  // namespace
