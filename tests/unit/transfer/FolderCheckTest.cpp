// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/FolderCheck.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "CardFixture.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// Of a folder that a card was copied into.
class FolderCheckTest : public CardFixture {
 protected:
  FolderCheckTest() { copy(); }

  std::vector<std::string> findings() {
    std::vector<std::string> all;
    FolderCheck check(home());
    _isRight = check.run(
        [&](const FolderCheck::Finding& finding) {
          const std::string words[] = {"right", "changed", "missing", "moved", "new", "unreadable"};
          all.push_back(words[static_cast<int>(finding.state)] + " " + finding.path +
                        (finding.detail.empty() ? "" : ": " + finding.detail));
        },
        [](auto /*bytes*/) { return true; });
    return all;
  }

  bool _isRight = false;
};

TEST_F(FolderCheckTest, AllIsRight) {
  EXPECT_THAT(findings(),
              ElementsAre("right DAY2/R0003.WAV", "right R0001.WAV", "right R0002.wav"));
  EXPECT_TRUE(_isRight);
}

TEST_F(FolderCheckTest, TellsWhatIsNotRight) {
  std::fstream(home() / "R0001.WAV", std::ios::in | std::ios::out) << "x";
  fs::rename(home() / "DAY2" / "R0003.WAV", home() / "moved.WAV");
  put("home/R0002.wav", Bytes(1));
  put("home/new.WAV", Bytes(1000));
  EXPECT_THAT(findings(),
              ElementsAre("changed R0001.WAV: another content", "changed R0002.wav: 1 bytes, not 0",
                          "moved DAY2/R0003.WAV: moved.WAV", "new new.WAV"));
  EXPECT_FALSE(_isRight);
}

TEST_F(FolderCheckTest, TellsWhatIsMissing) {
  fs::remove(home() / "R0001.WAV");
  EXPECT_THAT(findings(),
              ElementsAre("right DAY2/R0003.WAV", "right R0002.wav", "missing R0001.WAV"));
  EXPECT_FALSE(_isRight);
}

// A user who may not look into it cannot say that it is not there, nor where it went.
TEST_F(FolderCheckTest, WhatAFolderHidesIsNotMissing) {
  fs::create_directories(home() / "DAY1");
  put("home/DAY1/other.WAV", Bytes(1000, std::byte{3}));
  const std::string found = withoutRightsTo(home() / "DAY2", [this] {
    std::string text;
    for (const std::string& finding : findings()) text += finding + "\n";
    return text + (_isRight ? "all right" : "not right");
  });
  EXPECT_EQ(found,
            "new DAY1/other.WAV\nright R0001.WAV\nright R0002.wav\n"
            "unreadable DAY2/R0003.WAV: it cannot be listed\nnot right");
}

TEST_F(FolderCheckTest, AFolderWithoutAManifestCannotBeChecked) {
  EXPECT_EQ(FolderCheck(card()).whyNot(), "It has no manifest (ascmhl)");
  EXPECT_EQ(FolderCheck(card()).obstacle(), FolderCheck::Obstacle::NoManifest);
  EXPECT_EQ(FolderCheck(home()).whyNot(), "");
  EXPECT_EQ(FolderCheck(home()).obstacle(), FolderCheck::Obstacle::None);
}

TEST_F(FolderCheckTest, AFolderThatIsNoneCannotBeChecked) {
  const FolderCheck none(home() / "none");
  EXPECT_EQ(none.whyNot(), "The folder cannot be read: No such file or directory");
  EXPECT_EQ(none.obstacle(), FolderCheck::Obstacle::Folder);
  EXPECT_EQ(FolderCheck(home() / "R0001.WAV").whyNot(),
            "The folder cannot be read: Not a directory");
}

TEST_F(FolderCheckTest, AManifestThatWasTouchedIsNotRight) {
  const fs::path chain = home() / "ascmhl" / "ascmhl_chain.xml";
  fs::path generation;
  for (const auto& entry : fs::directory_iterator(home() / "ascmhl")) {
    if (entry.path().extension() == ".mhl") generation = entry.path();
  }
  const std::string name = generation.filename().native();
  EXPECT_THAT(FolderCheck(home()).problems(), IsEmpty());
  std::ofstream(generation, std::ios::app) << "<!-- -->";
  EXPECT_THAT(FolderCheck(home()).problems(),
              ElementsAre(name + ": it was changed after it was written"));
  findings();
  EXPECT_FALSE(_isRight);
  std::ofstream(generation, std::ios::app) << "<";
  EXPECT_THAT(FolderCheck(home()).problems(), ElementsAre(name + ": it is not well-formed"));
  fs::remove(generation);
  EXPECT_THAT(FolderCheck(home()).problems(), ElementsAre(name + ": it is missing"));
  std::ofstream(chain, std::ios::trunc) << "<other/>";
  EXPECT_THAT(FolderCheck(home()).problems(), ElementsAre("ascmhl_chain.xml: it is no such list"));
}

TEST_F(FolderCheckTest, AGenerationThatIsNotInTheChainYetIsTakenInByTheNextCopy) {
  fs::remove(home() / "ascmhl" / "ascmhl_chain.xml");
  EXPECT_EQ(FolderCheck(home()).problems().size(), 1U);
  put("card/R0004.WAV", Bytes(5));
  EXPECT_TRUE(copy());
  EXPECT_THAT(FolderCheck(home()).problems(), IsEmpty());
  EXPECT_TRUE(isRight());
}

// A copy tells the chain of its manifest in the end alone, and a take before its manifest.
TEST_F(FolderCheckTest, AFolderThatIsBeingCopiedIntoIsNotCheckedYet) {
  put("card/R0004.WAV", Bytes(5));
  put("card/R0005.WAV", Bytes(5));
  CardCopy job(card(), home());
  std::size_t looks = 0;
  job.setProgress([&](const auto& /*progress*/) {
    const FolderCheck check(home());
    EXPECT_EQ(check.whyNot(), "A copy is at work there");
    EXPECT_EQ(check.obstacle(), FolderCheck::Obstacle::Copying);
    ++looks;
  });
  EXPECT_TRUE(run(job));
  EXPECT_GT(looks, 5U);
  EXPECT_EQ(FolderCheck(home()).whyNot(), "");
  EXPECT_TRUE(isRight());
}

TEST_F(FolderCheckTest, ACheckThatHasLookedKeepsNoCopyAway) {
  put("card/R0004.WAV", Bytes(5));
  FolderCheck check(home());
  EXPECT_TRUE(copy());
  EXPECT_TRUE(check.run([](const auto& /*finding*/) {}, [](auto /*bytes*/) { return true; }))
      << "what has come since is not looked at";
}

TEST_F(FolderCheckTest, ListsNoLongerThanItMay) {
  const FolderCheck check(home(), [] { return false; });
  EXPECT_EQ(check.obstacle(), FolderCheck::Obstacle::Cancelled);
  EXPECT_NE(check.whyNot(), "");
}

// Of a program that tells no sizes, and knows other hashes beside.
TEST_F(FolderCheckTest, WithoutASizeTheContentCounts) {
  fs::rename(home() / "R0001.WAV", home() / "moved.WAV");
  for (const auto& entry : fs::directory_iterator(home() / "ascmhl")) {
    std::string text;
    std::getline(std::ifstream(entry.path()), text, '\0');
    text = std::regex_replace(text, std::regex(" size=\"[0-9]*\""), "");
    if (entry.path().extension() == ".mhl") std::ofstream(entry.path()) << text;
  }
  fs::remove(home() / "ascmhl" / "ascmhl_chain.xml");
  EXPECT_THAT(findings(),
              ElementsAre("right DAY2/R0003.WAV", "right R0002.wav", "moved R0001.WAV: moved.WAV"));
}

TEST_F(FolderCheckTest, AStepThatSaysSoEndsIt) {
  FolderCheck check(home());
  std::size_t told = 0;
  EXPECT_FALSE(
      check.run([&](const auto& /*finding*/) { ++told; }, [](auto /*bytes*/) { return false; }));
  EXPECT_EQ(told, 0U);
}

TEST_F(FolderCheckTest, EndedInTheLastFileItKnowsNotWhatIsMissing) {
  fs::rename(home() / "DAY2" / "R0003.WAV", home() / "moved.WAV");
  FolderCheck check(home());
  std::size_t told = 0;
  const auto tell = [&](const FolderCheck::Finding& finding) {
    EXPECT_EQ(finding.state, FolderCheck::State::Right) << finding.path;
    ++told;
  };
  EXPECT_FALSE(check.run(tell, [&](auto /*bytes*/) { return told < 2; }));
  EXPECT_EQ(told, 2U);
}

}  // namespace
