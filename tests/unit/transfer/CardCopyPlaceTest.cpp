// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// The card is never written to, wherever the folder leads.

#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <string>

#include "CardFixture.h"

namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;

constexpr const char* kHoldsFolder = "The card is never written to, but holds the folder";

class CardCopyPlaceTest : public CardFixture {
 protected:
  /// All that is on the card; no content of a folder.
  [[nodiscard]] std::map<std::string, Bytes> onCard() const {
    std::map<std::string, Bytes> found;
    for (const auto& entry : fs::recursive_directory_iterator(card())) {
      found[entry.path()] = entry.is_directory() ? Bytes() : TemporaryFolder::read(entry.path());
    }
    return found;
  }
  /// Why no copy from here begins, as seen from within a folder.
  static std::string whyNotFrom(const fs::path& within, const fs::path& card,
                                const fs::path& destination) {
    const fs::path before = fs::current_path();
    fs::current_path(within);
    CardCopy job(card, destination);
    std::string reason = job.prepare();
    fs::current_path(before);
    return reason;
  }
};

TEST_F(CardCopyPlaceTest, APathFromTheCardOnIsOnTheCard) {
  const auto before = onCard();
  for (const char* const destination : {"backup", "x/y", "./backup", "DAY2/../x", "."}) {
    EXPECT_EQ(whyNotFrom(card(), ".", destination), kHoldsFolder) << destination;
    EXPECT_EQ(whyNotFrom(card(), card(), destination), kHoldsFolder) << destination;
  }
  EXPECT_EQ(whyNotFrom(_folder.path(), "card", "card/x/y"), kHoldsFolder);
  EXPECT_EQ(whyNotFrom(card() / "DAY2", "..", "x"), kHoldsFolder);
  EXPECT_EQ(onCard(), before);
  EXPECT_EQ(whyNotFrom(card(), ".", "../home"), "");
}

TEST_F(CardCopyPlaceTest, AFolderOfAnotherNameThatBeginsAlikeIsNotOnTheCard) {
  EXPECT_EQ(whyNotFrom(_folder.path(), "card", "card2"), "");
  EXPECT_EQ(whyNotFrom(_folder.path(), "card/DAY2", "card/DAY1"), "") << "of one disk";
}

TEST_F(CardCopyPlaceTest, AFolderThatCannotBeFoundIsRefused) {
  fs::create_symlink("round", _folder.path() / "round");
  CardCopy job(card(), _folder.path() / "round" / "home");
  EXPECT_EQ(job.prepare(), "The folder cannot be made: Too many levels of symbolic links");
  EXPECT_EQ(job.obstacle(), CardCopy::Obstacle::FolderUnwritable);
}

TEST_F(CardCopyPlaceTest, AFolderThatLeadsBackIsNoCopy) {
  fs::create_directories(home());
  fs::create_directory_symlink(card() / "DAY2", home() / "DAY2");
  const auto before = onCard();
  EXPECT_FALSE(copy());
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV failed", "R0001.WAV copied", "R0002.wav copied"));
  EXPECT_THAT(_reasons, ElementsAre(kHoldsFolder, "", ""));
  EXPECT_EQ(onCard(), before);
}

TEST_F(CardCopyPlaceTest, WhatWasVerifiedIsNoneAnyMoreOnceItsFolderLeadsBack) {
  ASSERT_TRUE(copy());
  fs::remove_all(home() / "DAY2");
  fs::create_directory_symlink(card() / "DAY2", home() / "DAY2");
  EXPECT_FALSE(copy());
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV failed", "R0001.WAV kept", "R0002.wav kept"));
}

TEST_F(CardCopyPlaceTest, NothingIsWrittenThroughALink) {
  fs::create_directories(home());
  fs::create_directories(card() / "OTHER");
  for (const char* const target : {"OTHER", "NEW"}) {
    fs::remove(home() / "DAY2");
    fs::create_directory_symlink(card() / target, home() / "DAY2");
    const auto before = onCard();
    EXPECT_FALSE(copy());
    EXPECT_THAT(_told, Contains("DAY2/R0003.WAV failed")) << target;
    EXPECT_EQ(onCard(), before) << target;
  }
}

TEST_F(CardCopyPlaceTest, NoManifestIsWrittenThroughALink) {
  fs::create_directories(home());
  fs::create_directories(card() / "OTHER");
  fs::create_directory_symlink(card() / "OTHER", home() / "ascmhl");
  const auto before = onCard();
  EXPECT_EQ(CardCopy(card(), home()).prepare(), kHoldsFolder);
  EXPECT_EQ(onCard(), before);
}

TEST_F(CardCopyPlaceTest, TheCardsOwnFileIsNoCopy) {
  fs::create_directories(home());
  fs::create_hard_link(card() / "R0001.WAV", home() / "R0001.WAV");
  EXPECT_FALSE(copy());
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV copied", "R0001.WAV failed", "R0002.wav copied"));
  EXPECT_THAT(_reasons, ElementsAre("", "The target is the source itself", ""));
}

TEST_F(CardCopyPlaceTest, AFolderThatLeadsElsewhereIsGood) {
  fs::create_directories(home());
  fs::create_directories(_folder.path() / "disk");
  fs::create_directory_symlink(_folder.path() / "disk", home() / "DAY2");
  EXPECT_TRUE(copy());
  EXPECT_EQ(read("disk/R0003.WAV"), read("card/DAY2/R0003.WAV"));
}

}  // namespace
