// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/TakeMemory.h"

#include <gmock/gmock.h>

#include "support/EnvironmentVariable.h"
#include "support/FirstMemory.h"
#include "unit/takes/MemoryFixture.h"

namespace {

using Memory = MemoryFixture;

TEST_F(Memory, ATakeComesBackAsItWas) {
  const RememberedSound whole{90.25, -36, FrameRange{0, 5'000'000'000}};
  const RememberedSound plain{std::nullopt, 36, std::nullopt};
  EXPECT_TRUE(TakeMemory(file).remember("a", whole));
  EXPECT_TRUE(TakeMemory(file).remember("b", plain));
  EXPECT_EQ(TakeMemory(file).find("a"), whole);
  EXPECT_EQ(TakeMemory(file).find("b"), plain);
  EXPECT_EQ(TakeMemory(file).find("c"), std::nullopt);
}

TEST_F(Memory, TheNewestCounts) {
  TakeMemory memory(file);
  EXPECT_TRUE(memory.remember("a", sound(1)));
  EXPECT_TRUE(memory.remember("a", {120.0, 2, std::nullopt}));
  EXPECT_EQ(memory.find("a"), (RememberedSound{120.0, 2, std::nullopt}));
  EXPECT_EQ(memory.takeTrouble(), TakeMemory::Trouble::None);
}

TEST_F(Memory, WhoAsksMakesNoFile) {
  EXPECT_EQ(TakeMemory(file).find("a"), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(file.parent_path()));
}

TEST_F(Memory, ItIsWrittenAheadAndOneFileAfterwards) {
  remember(file, "a", 1);
  const auto bytes = TemporaryFolder::read(file);
  ASSERT_GT(bytes.size(), 19U);
  EXPECT_EQ(bytes[18], std::byte{2});  // of the header: written ahead
  EXPECT_EQ(bytes[19], std::byte{2});
  EXPECT_FALSE(std::filesystem::exists(file.native() + "-wal"));
}

TEST_F(Memory, AFileOfTheFirstVersionIsReadAndGoesOn) {
  makeFirst(file);
  TakeMemory memory(file);
  EXPECT_EQ(memory.find("a"), (RememberedSound{90.5, -6, FrameRange{48'000, 96'000}}));
  EXPECT_EQ(memory.find("b"), (RememberedSound{std::nullopt, 3, std::nullopt}));
  EXPECT_TRUE(memory.remember("b", sound(7)));
  EXPECT_EQ(gainOf(file, "a"), -6);
  EXPECT_EQ(gainOf(file, "b"), 7);
  EXPECT_EQ(memory.takeTrouble(), TakeMemory::Trouble::None);
}

TEST_F(Memory, ExportsAreNotedByWhereTheyLie) {
  const ExportNote first{"/card/R0001.WAV", "/home/R0001_Decode.WAV", 90.5, -6.0, 1'700'000'000};
  const ExportNote second{"/card/R0001.WAV", "/home/odd \xff.wav", {}, {}, 1'700'000'001};
  TakeMemory memory(file);
  EXPECT_TRUE(memory.exportsOf(first.source).empty());
  EXPECT_TRUE(memory.noteExport(first));
  EXPECT_TRUE(memory.noteExport(second));
  EXPECT_TRUE(memory.noteExport(second)) << "once more";
  EXPECT_THAT(TakeMemory(file).exportsOf(first.source),
              testing::UnorderedElementsAre(first, second));
  EXPECT_TRUE(memory.exportsOf("/card/R0002.WAV").empty());
}

TEST_F(Memory, ExportsAreKnownOfAllTakesOfAFolder) {
  TakeMemory memory(file);
  for (const char* const take :
       {"/card/a.wav", "/card/b/c.wav", "/card", "/card-2/a.wav", "/car/d"})
    EXPECT_TRUE(memory.noteExport({take, std::string("/home") + take, {}, {}, 1}));
  const auto takes = [&memory](const char* place) {
    std::vector<std::string> names;
    for (const ExportNote& note : memory.exportsOf(place)) names.push_back(note.source);
    return names;
  };
  using testing::UnorderedElementsAre;
  EXPECT_THAT(takes("/card"), UnorderedElementsAre("/card", "/card/a.wav", "/card/b/c.wav"));
  EXPECT_THAT(takes("/card/b"), UnorderedElementsAre("/card/b/c.wav"));
  EXPECT_EQ(takes("/").size(), 5U);
}

TEST_F(Memory, AnExportThatIsReplacedByThatOfAnotherTakeIsForgotten) {
  const ExportNote first{"/card/R0001.WAV", "/home/mix.wav", 90.0, {}, 1};
  const ExportNote kept{"/card/R0001.WAV", "/home/other.wav", 90.0, {}, 1};
  const ExportNote second{"/card/R0002.WAV", "/home/mix.wav", 60.0, {}, 2};
  TakeMemory memory(file);
  for (const ExportNote& note : {first, kept, second}) EXPECT_TRUE(memory.noteExport(note));
  EXPECT_THAT(memory.exportsOf(first.source), testing::ElementsAre(kept));
  EXPECT_THAT(memory.exportsOf(second.source), testing::ElementsAre(second));
}

TEST_F(Memory, AFileOfTheFirstVersionGetsRoomForExports) {
  makeFirst(file);
  TakeMemory memory(file);
  EXPECT_TRUE(memory.exportsOf("/a").empty());
  EXPECT_TRUE(memory.noteExport({"/a", "/b", {}, {}, 1}));
  EXPECT_EQ(memory.exportsOf("/a").size(), 1U);
  EXPECT_EQ(gainOf(file, "a"), -6);
  EXPECT_EQ(memory.takeTrouble(), TakeMemory::Trouble::None);
}

TEST_F(Memory, AFileOfAVersionToComeIsLeftAlone) {
  remember(file, "a", 1);
  change(file, "CREATE TABLE more (x); PRAGMA user_version = 9");
  const auto before = TemporaryFolder::read(file);
  TakeMemory memory(file);
  EXPECT_EQ(memory.find("a"), std::nullopt);
  EXPECT_EQ(memory.takeTrouble(), TakeMemory::Trouble::Newer);
  EXPECT_FALSE(memory.remember("a", sound(2)));
  EXPECT_EQ(memory.takeTrouble(), TakeMemory::Trouble::Newer);
  EXPECT_EQ(TemporaryFolder::read(file), before);
  EXPECT_FALSE(std::filesystem::exists(memory.damagedPath()));
}

TEST_F(Memory, WhatNoControlCanBeSetToIsNotTaken) {
  remember(file, "a", 1);
  remember(file, "b", 1);
  remember(file, "c", 1);
  change(file,
         "UPDATE takes SET gain = 1000 WHERE identity = 'a';"
         "UPDATE takes SET width = -1 WHERE identity = 'b';"
         "UPDATE takes SET loop_end = 1 WHERE identity = 'c'");
  EXPECT_EQ(TakeMemory(file).find("a"), std::nullopt);
  EXPECT_EQ(TakeMemory(file).find("b"), (RememberedSound{std::nullopt, 1, sound(1).loop}));
  EXPECT_EQ(TakeMemory(file).find("c"), (RememberedSound{90.5, 1, std::nullopt}));
}

TEST_F(Memory, ItsNameMayHoldAnything) {
  const auto odd = folder.path() / "a%20b?mode=ro#c \xff" / "takes.db";
  remember(odd, "a", 4);
  EXPECT_EQ(gainOf(odd, "a"), 4);
}

TEST_F(Memory, ItStandsInTheUsersDataFolder) {
  const EnvironmentVariable home("HOME", "/home/someone");
  {
    const EnvironmentVariable data("XDG_DATA_HOME", "/data");
    EXPECT_EQ(TakeMemory::defaultPath(), "/data/mixdeck/takes.db");
  }
  const EnvironmentVariable data("XDG_DATA_HOME", "relative");
  EXPECT_EQ(TakeMemory::defaultPath(), "/home/someone/.local/share/mixdeck/takes.db");
}

}  // namespace
