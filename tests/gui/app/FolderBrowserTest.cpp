// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/FolderBrowser.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTimer>
#include <filesystem>
#include <semaphore>

#include "base/Utility.h"
#include "support/EventLoop.h"
#include "support/LogLines.h"
#include "support/OwnSettings.h"
#include "support/TemporaryFolder.h"

namespace {

using testing::ElementsAre;

class Browser : public testing::Test {
 protected:
  /// Until it is known whether what was asked for is there.
  void settle() {
    ASSERT_TRUE(EventLoop::runUntil([this] { return !browser.isLooking(); }));
  }
  void goUp() {
    browser.goUp();
    settle();
  }
  void choose(int row) {
    browser.choose(row);
    settle();
  }
  void waitForListing() {
    QSignalSpy answers(&browser, &FolderBrowser::listed);
    ASSERT_TRUE(answers.wait(20'000));
  }
  std::filesystem::path inner(const std::string& name) const {
    std::filesystem::create_directories(takes.path() / name);
    return takes.path() / name;
  }
  [[nodiscard]] std::vector<std::string> rows() {
    std::vector<std::string> found;
    for (const WavItem& item : browser.model().files())
      found.push_back(item.fileName.toStdString());
    return found;
  }
  [[nodiscard]] static std::string stored() {
    return Utility::getStringValue(Utility::kLastOpenFolder).value_or("");
  }

  OwnSettings own;
  TemporaryFolder takes;
  LogLines log;
  FolderBrowser browser;
  QSignalSpy names{&browser, &FolderBrowser::named};
  QSignalSpy chosen{&browser, &FolderBrowser::takeChosen};
  QSignalSpy granted{&browser, &FolderBrowser::wishGranted};
};

TEST_F(Browser, RemembersNamesAndListsTheFolder) {
  takes.file("a.wav", {});
  browser.openFolder(takes.path() / "");
  EXPECT_EQ(browser.requestedFolder(), takes.path());
  EXPECT_EQ(stored(), takes.path());
  EXPECT_EQ(names.last().first().toString().toStdString(), takes.path().filename());
  EXPECT_EQ(browser.listing(), nullptr) << "nobody waits for it";
  waitForListing();
  EXPECT_THAT(rows(), ElementsAre("a.wav"));
  const auto* const timer = browser.findChild<QTimer*>("timerUpdateFolder");
  EXPECT_TRUE(timer->isActive());
  EXPECT_EQ(timer->interval(), 5000);
}

TEST_F(Browser, NoFolderIsNone) {
  browser.openFolder({});
  EXPECT_EQ(stored(), "");
  EXPECT_FALSE(browser.findChild<QTimer*>("timerUpdateFolder")->isActive());
}

TEST_F(Browser, BeginsWithTheFolderOfTheLastTimeOrTheDesktop) {
  browser.begin({});
  EXPECT_EQ(browser.requestedFolder(), own.home.path() / "Desktop");
  Utility::store(Utility::kLastOpenFolder, takes.path().string());
  browser.begin({});
  EXPECT_EQ(browser.requestedFolder(), takes.path());
}

TEST_F(Browser, BeginsWithARecordingThatItChoosesAndShows) {
  takes.file("a.wav", {});
  const auto path = takes.file("b.wav", {});
  browser.begin(path);
  settle();
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen.first().first().value<WavItem>().fullPath, path);
  EXPECT_EQ(browser.requestedFolder(), takes.path());
  waitForListing();
  ASSERT_EQ(granted.count(), 1);
  EXPECT_EQ(granted.first().first().value<std::vector<int>>(), std::vector{1});
}

TEST_F(Browser, BeginsWithARecordingAmongOthers) {
  const auto a = takes.file("a.wav", {});
  takes.file("b.wav", {});
  const auto c = takes.file("c.wav", {});
  browser.begin(c, {a, inner("Bells") / "b.wav", takes.path() / "gone.wav"});
  settle();
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen.first().first().value<WavItem>().fullPath, c);
  while (granted.empty()) waitForListing();
  EXPECT_EQ(granted.first().first().value<std::vector<int>>(), (std::vector{1, 3}));
  EXPECT_EQ(granted.first().last().toInt(), 3) << "the one that is chosen is current";
}

TEST_F(Browser, ShowsTheDesktopWhileTheFolderIsGone) {
  takes.file("a.wav", {});
  std::filesystem::create_directory(own.home.path() / "Desktop");
  browser.openFolder(inner("gone"));
  waitForListing();
  std::filesystem::remove(takes.path() / "gone");
  browser.refresh();
  waitForListing();
  EXPECT_EQ(browser.listing()->folderPath(), own.home.path() / "Desktop");
  EXPECT_EQ(names.last().first().toString(), "Desktop");
  EXPECT_EQ(browser.requestedFolder(), takes.path() / "gone");
  EXPECT_EQ(stored(), takes.path() / "gone");
}

TEST_F(Browser, ShowsTheHomeFolderWhereThereIsNoDesktop) {
  own.home.file("a.wav", {});
  browser.begin({});
  waitForListing();
  EXPECT_EQ(browser.listing()->folderPath(), own.home.path());
  EXPECT_EQ(names.last().first().toString().toStdString(), own.home.path().filename());
  EXPECT_THAT(rows(), ElementsAre("a.wav"));
  EXPECT_EQ(browser.failure(), "");
  EXPECT_EQ(browser.requestedFolder(), own.home.path() / "Desktop");
}

TEST_F(Browser, SaysWhatCannotBeRead) {
  browser.openFolder(takes.file("file", {}));
  EXPECT_EQ(browser.failure(), "");
  waitForListing();
  EXPECT_EQ(browser.failure(), "“file” cannot be read: Not a directory");
}

TEST_F(Browser, GoesUpAsFarAsThereIsSomething) {
  goUp();
  EXPECT_EQ(browser.requestedFolder(), "") << "nothing is shown yet";
  browser.openFolder(inner("Bells"));
  waitForListing();
  goUp();
  EXPECT_EQ(browser.requestedFolder(), takes.path());
  browser.openFolder("/");
  waitForListing();
  goUp();
  EXPECT_EQ(browser.requestedFolder(), "/");
}

TEST_F(Browser, TwoQuickGoUpsClimbTwoLevels) {
  browser.openFolder(inner("Bells/Deep"));
  waitForListing();
  browser.goUp();
  goUp();
  EXPECT_EQ(browser.requestedFolder(), takes.path());
}

TEST_F(Browser, GoesUpFromThePlaceThatIsShownInstead) {
  std::filesystem::create_directory(own.home.path() / "Desktop");
  browser.openFolder(takes.path() / "gone" / "deep");
  waitForListing();
  goUp();
  EXPECT_EQ(browser.requestedFolder(), own.home.path());
}

TEST_F(Browser, DoesNotGoUpToAParentThatHasGone) {
  browser.openFolder(inner("Bells"));
  waitForListing();
  std::filesystem::remove_all(takes.path());
  goUp();
  EXPECT_EQ(browser.requestedFolder(), takes.path() / "Bells");
}

TEST_F(Browser, ChoosesFoldersAndRecordingsThatAreStillThere) {
  const auto path = takes.file("a.wav", {});
  const auto gone = takes.file("b.wav", {});
  const auto bells = inner("Bells");
  browser.openFolder(takes.path());
  waitForListing();
  ASSERT_THAT(rows(), ElementsAre("Bells", "a.wav", "b.wav"));
  std::filesystem::remove(gone);
  for (const int row : {-1, 2, 3}) choose(row);
  EXPECT_EQ(chosen.count(), 0);
  choose(1);
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen.first().first().value<WavItem>().fullPath, path);
  choose(0);
  EXPECT_EQ(browser.requestedFolder(), bells);
}

TEST_F(Browser, WhatIsAskedForNextEndsTheLook) {
  takes.file("a.wav", {});
  const auto bells = inner("Bells");
  browser.openFolder(takes.path());
  waitForListing();
  browser.choose(1);
  EXPECT_TRUE(browser.isLooking());
  browser.choose(0);
  settle();
  EXPECT_EQ(browser.requestedFolder(), bells);
  browser.goUp();
  browser.openFolder(bells);
  EXPECT_FALSE(browser.isLooking());
  waitForListing();
  EXPECT_EQ(browser.requestedFolder(), bells);
  EXPECT_EQ(chosen.count(), 0);
}

TEST_F(Browser, RowsOfTheFolderBeforeCannotBeChosen) {
  takes.file("a.wav", {});
  const auto bells = inner("Bells");
  browser.openFolder(takes.path());
  waitForListing();
  browser.openFolder(bells);
  for (const int row : {0, 1}) choose(row);
  EXPECT_EQ(chosen.count(), 0);
  EXPECT_EQ(browser.requestedFolder(), bells);
  browser.openFolder(takes.path());
  choose(1);
  EXPECT_EQ(chosen.count(), 1) << "back before the other one came";
}

TEST_F(Browser, RowsOfTheFolderBeforeGoWhereItTakesLong) {
  takes.file("a.wav", {});
  const auto slow = inner("Bells");
  const auto door = std::make_shared<std::binary_semaphore>(0);  // threads may outlive the test
  FolderBrowser patient(nullptr, [door, slow](const FolderLister::Question& question) {
    if (question.folder == slow) door->acquire();
    return FolderLister::answerTo(question);
  });
  QSignalSpy answers(&patient, &FolderBrowser::listed);
  patient.openFolder(takes.path());
  ASSERT_TRUE(answers.wait(20'000));
  ASSERT_EQ(patient.model().rowCount(), 2);
  QSignalSpy leaving(&patient, &FolderBrowser::rowsAboutToChange);
  patient.openFolder(slow);
  EXPECT_EQ(patient.model().rowCount(), 2) << "no flicker where it comes soon";
  EXPECT_TRUE(EventLoop::runUntil([&] { return patient.model().rowCount() == 0; }));
  door->release();
  ASSERT_TRUE(answers.wait(20'000));
  EXPECT_EQ(leaving.count(), 1) << "what was selected is asked for once";
  patient.openFolder(slow);
  patient.openFolder(takes.path());
  ASSERT_TRUE(answers.wait(20'000));
  EXPECT_EQ(patient.model().rowCount(), 2);
  door->release();
}

// Whoever opens it tells why.
TEST_F(Browser, ChoosesWhatCannotBeLookedAt) {
  const auto path = takes.file("a.wav", {});
  browser.openFolder(takes.path());
  waitForListing();
  std::filesystem::remove(path);
  std::filesystem::create_symlink(path, path);  // nobody gets to the end of it
  choose(0);
  EXPECT_EQ(chosen.count(), 1);
}

TEST_F(Browser, ListsAgainWhereWhatIsChosenHasGone) {
  browser.openFolder(inner("Bells"));
  takes.file("Bells/a.wav", {});
  browser.refresh();
  waitForListing();
  while (browser.model().rowCount() == 0) waitForListing();
  std::filesystem::rename(takes.path() / "Bells", takes.path() / "Chimes");
  browser.choose(0);
  // A listing from before may still arrive.
  EXPECT_TRUE(
      EventLoop::runUntil([&] { return browser.listing()->folderPath() == own.home.path(); }));
}

TEST_F(Browser, WishIsForItsFolderAlone) {
  takes.file("a_Decode.wav", {});
  const auto elsewhere = inner("Bells") / "a_Decode.wav";
  browser.openFolder(takes.path());
  waitForListing();
  browser.wishFor(elsewhere);
  browser.refresh();
  waitForListing();
  EXPECT_EQ(granted.count(), 0) << "a file of that name is here too";
  std::filesystem::copy_file(takes.path() / "a_Decode.wav", elsewhere);
  browser.openFolder(takes.path() / "Bells");
  waitForListing();
  EXPECT_EQ(granted.count(), 0) << "the wish has ended";
}

TEST_F(Browser, WishOutlivesTheListingThatCameTooEarly) {
  browser.openFolder(takes.path());  // this listing may not have the file
  takes.file("new.wav", {});
  browser.wishFor(takes.path() / "new.wav");
  browser.refresh();
  waitForListing();
  if (granted.empty()) waitForListing();
  EXPECT_EQ(granted.count(), 1);
  browser.refresh();
  waitForListing();
  EXPECT_EQ(granted.count(), 1) << "once";
}

TEST_F(Browser, WishForWhatIsNotThereEnds) {
  browser.openFolder(takes.path());
  waitForListing();
  browser.wishFor(takes.path() / "new.wav");
  browser.refresh();
  waitForListing();
  takes.file("new.wav", {});
  browser.refresh();
  waitForListing();
  EXPECT_EQ(granted.count(), 0);
}

TEST_F(Browser, TellsBeforeAndAfterTheRowsChange) {
  takes.file("a.wav", {});
  std::vector<std::size_t> counts;
  QObject::connect(&browser, &FolderBrowser::rowsAboutToChange, &browser,
                   [&] { counts.push_back(rows().size()); });
  QSignalSpy changes(&browser, &FolderBrowser::rowsChanged);
  browser.openFolder(takes.path());
  waitForListing();
  takes.file("b.wav", {});
  browser.refresh();
  waitForListing();
  EXPECT_THAT(counts, ElementsAre(0U, 1U));
  ASSERT_EQ(changes.count(), 2);
  EXPECT_FALSE(changes[0].first().toBool());
  EXPECT_TRUE(changes[1].first().toBool());
  browser.refresh();
  waitForListing();
  EXPECT_EQ(changes.count(), 2) << "nothing has changed";
}

}  // namespace
