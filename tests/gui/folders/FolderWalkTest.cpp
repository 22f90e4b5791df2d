// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FolderWalk.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <filesystem>

#include "support/EventLoop.h"
#include "support/LogLines.h"
#include "support/TemporaryFolder.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Walk : public testing::Test {
 protected:
  std::filesystem::path inner(const std::string& name) const {
    std::filesystem::create_directories(folder.path() / name);
    return folder.path() / name;
  }
  void waitForListing() {
    const auto before = listed.count();
    ASSERT_TRUE(EventLoop::runUntil([this, before] { return listed.count() > before; }));
  }
  [[nodiscard]] std::vector<std::string> rows() {
    std::vector<std::string> names;
    for (const WavItem& item : walk.model().files()) names.push_back(item.fileName.toStdString());
    return names;
  }

  LogLines log;
  TemporaryFolder folder;
  FolderWalk walk{FolderWalk::Rows::All};
  QSignalSpy listed{&walk, &FolderWalk::listed};
};

TEST_F(Walk, HasNoRowsUntilTheyHaveBeenRead) {
  folder.file("a.wav", {});
  walk.open(folder.path());
  waitForListing();
  EXPECT_THAT(rows(), ElementsAre("a.wav"));
  walk.open(inner("Bells"));
  EXPECT_THAT(rows(), IsEmpty());
  waitForListing();
  walk.goUp();
  waitForListing();
  EXPECT_THAT(rows(), ElementsAre("Bells", "a.wav"));
}

TEST_F(Walk, GoesBackAndForwardAsLongAsThereIsSomething) {
  walk.back();
  walk.forward();
  walk.open("/a");
  EXPECT_FALSE(walk.canGoBack());
  walk.open("/b/");
  walk.open("/b");
  walk.open("/c");
  walk.back();
  walk.back();
  EXPECT_EQ(walk.folder(), "/a") << "the same folder twice is one";
  EXPECT_FALSE(walk.canGoBack());
  walk.forward();
  EXPECT_EQ(walk.folder(), "/b");
  walk.open("/d");
  EXPECT_FALSE(walk.canGoForward());
  walk.back();
  EXPECT_EQ(walk.folder(), "/b");
}

TEST_F(Walk, RootHasNothingAboveIt) {
  walk.open("/");
  walk.goUp();
  EXPECT_EQ(walk.folder(), "/");
  EXPECT_FALSE(walk.canGoBack());
}

TEST_F(Walk, TellsWhyAFolderCannotBeRead) {
  walk.open(folder.path() / "none");
  EXPECT_EQ(walk.failure(), "");
  waitForListing();
  EXPECT_EQ(walk.failure(), "No such file or directory");
  walk.open(folder.path());
  EXPECT_EQ(walk.failure(), "");
}

}  // namespace
