// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/TakeKeeper.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "support/Confinement.h"
#include "support/RefusedMemory.h"
#include "unit/takes/MemoryFixture.h"

namespace {

using Keeper = MemoryFixture;
using namespace std::chrono_literals;

TEST_F(Keeper, WhatWasGivenIsFoundAtOnceAndWritten) {
  TakeKeeper keeper(file);
  EXPECT_EQ(keeper.find("a"), std::nullopt);
  for (int i = 0; i < 20; ++i) keeper.remember("a", sound(i));
  EXPECT_EQ(keeper.find("a"), sound(19));
  ASSERT_TRUE(keeper.flush(1min));
  EXPECT_EQ(keeper.find("a"), sound(19));
  EXPECT_EQ(gainOf(file, "a"), 19);
}

TEST_F(Keeper, WhatWasGivenIsWrittenAfterItsEnd) {
  { TakeKeeper(file).remember("a", sound(3)); }
  while (gainOf(file, "a") != 3) std::this_thread::yield();
}

TEST_F(Keeper, ExportsAreNoted) {
  TakeKeeper keeper(file);
  const ExportNote note{"/a.wav", "/b.wav", 90.0, 3.0, 17};
  keeper.noteExport(note);
  keeper.noteExport({"/a.wav", "/c.wav", {}, {}, 18});
  ASSERT_TRUE(keeper.flush(1min));
  EXPECT_EQ(keeper.exportsOf("/a.wav").size(), 2U);
  EXPECT_EQ(keeper.exportsOf("/a.wav").at(0), note);
}

TEST_F(Keeper, ExportsThatAreYetToBeWrittenAreKnown) {
  TakeKeeper keeper(file);
  constexpr std::size_t kMany = 50;
  for (std::size_t i = 0; i < kMany; ++i) {
    keeper.noteExport({"/a.wav", "/" + std::to_string(i), {}, {}, 17});
  }
  keeper.noteExport({"/b.wav", "/0", {}, {}, 18});
  EXPECT_EQ(keeper.exportsOf("/a.wav").size(), kMany - 1);
  EXPECT_EQ(keeper.exportsOf("/b.wav").size(), 1U);
  EXPECT_EQ(keeper.exportsOf("/").size(), kMany);
  EXPECT_TRUE(keeper.exportsOf("/a").empty());
  ASSERT_TRUE(keeper.flush(1min));
  EXPECT_EQ(keeper.exportsOf("/a.wav").size(), kMany - 1);
}

TEST_F(Keeper, TellsOfADamagedFile) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file) << std::string(10'000, 'x');
  TakeKeeper keeper(file);
  EXPECT_EQ(keeper.find("a"), std::nullopt);
  EXPECT_EQ(keeper.takeTrouble(), TakeMemory::Trouble::SetAside);
  EXPECT_EQ(keeper.takeTrouble(), TakeMemory::Trouble::None);
}

#ifndef MIXDECK_SANITIZED  // which has a heap of its own, and starts no thread after a fork
TEST_F(Keeper, WithoutAThreadItIsKeptAndWrittenOnceOneCanBeHad) {
  std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
  const int status = Confinement::run([this] {
    if (!Confinement::refuseThreads()) return 1;
    TakeKeeper keeper(file);
    keeper.remember("a", sound(3));
    if (keeper.find("a") != sound(3)) return 2;
    if (keeper.flush(0ms)) return 3;
    if (!Confinement::allowThreads()) return 4;
    return keeper.flush(1min) ? 0 : 5;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(gainOf(file, "a"), 3);
}

TEST_F(Keeper, WhatThereIsNoMemoryForIsGivenUpAndTheNextIsWritten) {
  TakeKeeper keeper(file);
  {
    const RefusedMemory refused(1);
    keeper.remember("a", sound(1));
    keeper.noteExport({"/a.wav", "/b.wav", 90.0, 3.0, 17});
    EXPECT_TRUE(keeper.flush(1min));
    EXPECT_GT(RefusedMemory::count(), 0);
  }
  EXPECT_EQ(keeper.takeTrouble(), TakeMemory::Trouble::OutOfReach);
  EXPECT_EQ(keeper.takeTrouble(), TakeMemory::Trouble::None);
  keeper.remember("b", sound(3));
  ASSERT_TRUE(keeper.flush(1min));
  EXPECT_EQ(gainOf(file, "a"), std::nullopt);
  EXPECT_EQ(gainOf(file, "b"), 3);
}

TEST_F(Keeper, WhatWasGivenIsNotCopiedToBeWritten) {
  const std::string take(100'000, 'k');
  TakeKeeper keeper(file);
  const RefusedMemory refused(take.size());
  keeper.remember(take, sound(1));
  ASSERT_TRUE(keeper.flush(1min));
  EXPECT_EQ(RefusedMemory::count(), 0);
  EXPECT_EQ(gainOf(file, take), 1);
}
#endif

TEST_F(Keeper, SeveralThreadsMayAskAndGive) {
  TakeKeeper keeper(file);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&keeper, i] {
      const std::string take = std::to_string(i);
      for (int gain = 0; gain < 10; ++gain) {
        keeper.remember(take, sound(gain));
        EXPECT_EQ(keeper.find(take), sound(gain));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  ASSERT_TRUE(keeper.flush(1min));
  for (int i = 0; i < 4; ++i) EXPECT_EQ(gainOf(file, std::to_string(i)), 9);
}

}  // namespace
