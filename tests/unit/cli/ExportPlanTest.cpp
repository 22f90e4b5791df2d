// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ExportPlan.h"

#include <gtest/gtest.h>

#include "support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

using Items = std::vector<ExportPlan::Item>;

fs::path targetOf(const fs::path& source, const fs::path& output, const fs::path& folder) {
  return ExportPlan::make({source}, output, folder).at(0).target;
}

class ExportPlanTest : public testing::Test {
 protected:
  [[nodiscard]] fs::path at(const char* name) const { return _folder.path() / name; }

  TemporaryFolder _folder;
};

TEST_F(ExportPlanTest, PutsTheTargetBesideTheSource) {
  EXPECT_EQ(targetOf("/a/b/R0001.WAV", "", ""), "/a/b/R0001_Decode.WAV");
  EXPECT_EQ(targetOf("R0001.WAV", "", ""), "R0001_Decode.WAV");
  EXPECT_EQ(targetOf("../x/take.wav", "", ""), "../x/take_Decode.WAV");
}

TEST_F(ExportPlanTest, KeepsTheWholeNameButTheSuffix) {
  EXPECT_EQ(targetOf("/a/one.two.wav", "", ""), "/a/one.two_Decode.WAV");
  EXPECT_EQ(targetOf("/a/plain", "", ""), "/a/plain_Decode.WAV");
  EXPECT_EQ(targetOf("/a/.wav", "", ""), "/a/.wav_Decode.WAV");
  EXPECT_EQ(targetOf("/a/\xC3\xBC ber.WAV", "", ""), "/a/\xC3\xBC ber_Decode.WAV");
}

TEST_F(ExportPlanTest, PutsTheTargetIntoTheFolder) {
  EXPECT_EQ(targetOf("/a/b/R0001.WAV", "", "/out"), "/out/R0001_Decode.WAV");
  EXPECT_EQ(targetOf("R0001.WAV", "", "out/"), "out/R0001_Decode.WAV");
}

TEST_F(ExportPlanTest, TakesTheOutputAsItIs) {
  EXPECT_EQ(targetOf("/a/b/R0001.WAV", "x.raw", ""), "x.raw");
}

TEST_F(ExportPlanTest, MakesOneItemForEachSourceInOrder) {
  const Items items = ExportPlan::make({at("b.wav"), at("a.wav")}, "", "");
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].source, at("b.wav"));
  EXPECT_EQ(items[1].source, at("a.wav"));
  EXPECT_EQ(items[0].refusal, "");
  EXPECT_EQ(items[1].refusal, "");
  EXPECT_TRUE(ExportPlan::make({}, "", "").empty());
}

TEST_F(ExportPlanTest, RefusesTheSecondOfTwoEqualTargets) {
  const Items items = ExportPlan::make({at("x/a.wav"), at("y/a.wav")}, "", at("out"));
  EXPECT_EQ(items.at(0).refusal, "");
  EXPECT_EQ(items.at(1).refusal, "It belongs to " + at("x/a.wav").native() + " in the same run");
}

TEST_F(ExportPlanTest, RefusesTheSameSourceTwice) {
  const Items items = ExportPlan::make({at("a.wav"), at("./a.wav")}, "", "");
  EXPECT_EQ(items.at(0).refusal, "");
  EXPECT_NE(items.at(1).refusal, "");
}

TEST_F(ExportPlanTest, RefusesSourcesThatDifferInTheSuffixOnly) {
  const Items items = ExportPlan::make({at("a.wav"), at("a.WAV")}, "", "");
  EXPECT_EQ(items.at(0).refusal, "");
  EXPECT_NE(items.at(1).refusal, "");
}

// They are one file on a card.
TEST_F(ExportPlanTest, RefusesTheSecondOfTwoTargetsThatDifferInTheCaseOfLetters) {
  const Items items = ExportPlan::make({at("x/R1.WAV"), at("y/r1.WAV")}, "", at("out"));
  EXPECT_EQ(items.at(0).refusal, "");
  EXPECT_EQ(items.at(1).refusal, "It belongs to " + at("x/R1.WAV").native() + " in the same run");
}

TEST_F(ExportPlanTest, OtherFoldersAndOtherSignsAreOtherFiles) {
  const Items items =
      ExportPlan::make({at("x/a.wav"), at("X/a.wav"), at("x/a@.wav"), at("x/a`.wav")}, "", "");
  for (const ExportPlan::Item& item : items) EXPECT_EQ(item.refusal, "") << item.source;
}

TEST_F(ExportPlanTest, RefusesATargetThatIsTheSourceOfAnotherButForTheCaseOfLetters) {
  const Items items = ExportPlan::make({at("a.wav"), at("A_DECODE.WAV")}, "", "");
  EXPECT_EQ(items.at(0).refusal,
            "It belongs to " + at("A_DECODE.WAV").native() + " in the same run");
}

TEST_F(ExportPlanTest, RefusesATargetThatIsTheSourceOfAnother) {
  _folder.file("a.wav", {});
  _folder.file("a_Decode.WAV", {});
  const Items items = ExportPlan::make({at("a.wav"), at("a_Decode.WAV")}, "", "");
  EXPECT_EQ(items.at(0).refusal,
            "It belongs to " + at("a_Decode.WAV").native() + " in the same run");
  EXPECT_EQ(items.at(1).refusal, "");
}

TEST_F(ExportPlanTest, SeesThroughLinksToFiles) {
  _folder.file("a_Decode.WAV", {});
  fs::create_symlink("a_Decode.WAV", at("b_Decode.WAV"));
  const Items items = ExportPlan::make({at("a.wav"), at("b.wav")}, "", "");
  EXPECT_EQ(items.at(0).refusal, "");
  EXPECT_NE(items.at(1).refusal, "");
}

TEST_F(ExportPlanTest, SeesThroughLinksToFolders) {
  fs::create_directory(at("real"));
  fs::create_symlink("real", at("alias"));
  const Items items = ExportPlan::make({at("real/a.wav"), at("alias/a.wav")}, "", "");
  EXPECT_EQ(items.at(0).refusal, "");
  EXPECT_NE(items.at(1).refusal, "");
}

// Two dangling links to one missing file would be written one over the other.
TEST_F(ExportPlanTest, SeesThroughDanglingLinks) {
  fs::create_symlink("missing.wav", at("a_Decode.WAV"));
  fs::create_symlink("missing.wav", at("b_Decode.WAV"));
  const Items items = ExportPlan::make({at("a.wav"), at("b.wav")}, "", "");
  EXPECT_EQ(items.at(0).refusal, "");
  EXPECT_NE(items.at(1).refusal, "");
}

// The job itself refuses it, with a text of its own.
TEST_F(ExportPlanTest, LetsATargetThroughThatIsItsOwnSource) {
  _folder.file("a.wav", {});
  EXPECT_EQ(ExportPlan::make({at("a.wav")}, at("a.wav"), "").at(0).refusal, "");
}

}  // namespace
