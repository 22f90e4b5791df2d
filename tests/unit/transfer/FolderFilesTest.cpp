// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/FolderFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "CardFixture.h"

namespace {

namespace fs = std::filesystem;

using FolderFilesTest = CardFixture;

// All that was found, as one line.
std::string told(const FolderFiles& found) {
  std::string text;
  for (const CardTake& file : found.files) text += file.path.native() + " ";
  for (const FolderFiles::Gap& gap : found.gaps) text += "[" + gap.path.native() + "]";
  return text;
}

TEST_F(FolderFilesTest, FindsWhatIsBelowInTheOrderOfTheNames) {
  fs::create_directories(card() / "ascmhl");
  put("card/ascmhl/no.WAV", Bytes(1));
  fs::create_directories(card() / "DAY2" / "ascmhl");
  put("card/DAY2/ascmhl/yes.WAV", Bytes(1));
  fs::create_directories(card() / ".trash");
  put("card/.trash/no.WAV", Bytes(1));
  fs::create_directory_symlink(card() / "DAY2", card() / "link");
  EXPECT_EQ(told(FolderFiles::of(card(), FolderFiles::Which::Takes)),
            "DAY2/R0003.WAV DAY2/ascmhl/yes.WAV R0001.WAV R0002.wav ");
  EXPECT_EQ(told(FolderFiles::of(card(), FolderFiles::Which::All)),
            "DAY2/R0003.WAV DAY2/ascmhl/yes.WAV R0001.WAV R0002.wav notes.txt ");
}

TEST_F(FolderFilesTest, OneFolderThatCannotBeListedHidesNoOther) {
  fs::create_directories(card() / "DAY3" / "MORE");
  put("card/DAY3/MORE/R0004.WAV", Bytes(1));
  const std::string found = withoutRightsTo(
      card() / "DAY2", [this] { return told(FolderFiles::of(card(), FolderFiles::Which::Takes)); });
  EXPECT_EQ(found, "DAY3/MORE/R0004.WAV R0001.WAV R0002.wav [DAY2]");
}

TEST_F(FolderFilesTest, TellsWhyAFolderCannotBeListed) {
  const FolderFiles none = FolderFiles::of(card() / "none", FolderFiles::Which::All);
  ASSERT_EQ(told(none), "[]");
  EXPECT_EQ(none.gaps[0].reason, "No such file or directory");
  EXPECT_EQ(none.gaps[0].in("/card"), "/card");
  EXPECT_TRUE(none.mayHide("R0001.WAV"));
}

// On a slow card each of them takes its time.
TEST_F(FolderFilesTest, GoesOnNoLongerThanItMay) {
  for (int i = 0; i < 100; ++i) put("card/DAY2/" + std::to_string(i) + ".WAV", {});
  int asked = 0;
  const FolderFiles some =
      FolderFiles::of(card(), FolderFiles::Which::Takes, [&asked] { return ++asked < 20; });
  EXPECT_TRUE(some.isCutShort);
  EXPECT_LT(some.files.size(), 20U);
  EXPECT_EQ(asked, 20) << "no is no";
  EXPECT_FALSE(FolderFiles::of(card(), FolderFiles::Which::Takes).isCutShort);
}

TEST(FolderFilesGapTest, HidesWhatIsBelowIt) {
  const FolderFiles::Gap gap{"a/b", "reason"};
  EXPECT_EQ(gap.in("/card"), "/card/a/b");
  EXPECT_TRUE(gap.hides("a/b/c.WAV"));
  EXPECT_TRUE(gap.hides("a/b")) << "a file that could not be looked at";
  EXPECT_FALSE(gap.hides("a/bc.WAV"));
  EXPECT_FALSE(gap.hides("a"));
}

}  // namespace
