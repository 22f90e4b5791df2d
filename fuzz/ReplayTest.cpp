// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "Replay.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "AllocationMeter.h"
#include "support/TemporaryFolder.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class ReplayTest : public testing::Test {
 protected:
  void input(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder.path() / name, std::ios::binary) << bytes;
  }
  bool run(Replay::Target target, const std::filesystem::path& from) {
    const std::vector folders{from};
    return Replay(std::move(target), report).run(folders);
  }
  bool run(Replay::Target target) { return run(std::move(target), folder.path()); }

  TemporaryFolder folder;
  std::ostringstream report;
};

void ignore(const std::uint8_t* /*data*/, std::size_t /*size*/) {}

// Keeps the compiler from leaving an allocation out.
void hold(void* block) {
  void* volatile held = block;
  std::free(held);
}

}  // namespace

TEST_F(ReplayTest, EveryFileReachesTheTargetAsItIs) {
  input("b", "second");
  input("a", std::string("\0first", 6));
  std::vector<std::string> seen;
  EXPECT_TRUE(run(
      [&](const std::uint8_t* data, std::size_t size) { seen.emplace_back(data, data + size); }));
  EXPECT_THAT(seen, ElementsAre(std::string("\0first", 6), "second"));
}

TEST_F(ReplayTest, NoFolderIsAFault) {
  EXPECT_FALSE(Replay(ignore, report).run({}));
}

TEST_F(ReplayTest, AMissingFolderIsAFault) {
  EXPECT_FALSE(run(ignore, folder.path() / "missing"));
  EXPECT_THAT(report.str(), HasSubstr("No inputs"));
}

TEST_F(ReplayTest, AnEmptyFolderIsAFault) {
  EXPECT_FALSE(run(ignore));
}

TEST_F(ReplayTest, AnEmptyFolderAmongOthersIsAFault) {
  input("a", "a");
  const TemporaryFolder empty;
  const std::vector folders{empty.path(), folder.path()};
  EXPECT_FALSE(Replay(ignore, report).run(folders));
}

TEST_F(ReplayTest, HeapWithinTheBoundIsGood) {
  input("a", "a");
  EXPECT_TRUE(run([](auto...) { hold(std::malloc(Replay::kHeapFixed - 1000)); }));
}

TEST_F(ReplayTest, HeapInProportionToTheInputIsGood) {
  input("a", std::string(100'000, 'a'));
  EXPECT_TRUE(run([](auto...) { hold(std::malloc(Replay::kHeapFixed + 3'000'000)); }));
}

TEST_F(ReplayTest, TooLargeABlockIsAFaultThoughItIsNeverTouched) {
  input("a", "a");
  EXPECT_FALSE(run([](auto...) { hold(std::malloc(Replay::kHeapFixed + 1000)); }));
  EXPECT_THAT(report.str(), HasSubstr("of the heap for 1"));
}

TEST_F(ReplayTest, EveryKindOfBlockCounts) {
  input("a", "a");
  constexpr std::size_t kTooMuch = Replay::kHeapFixed + 4096;
  EXPECT_FALSE(run([](auto...) { hold(std::calloc(kTooMuch, 1)); }));
  EXPECT_FALSE(run([](auto...) { hold(std::realloc(std::malloc(16), kTooMuch)); }));
  EXPECT_FALSE(run([](auto...) { hold(std::aligned_alloc(4096, kTooMuch)); }));
  EXPECT_FALSE(run([](auto...) {
    void* block = nullptr;
    if (posix_memalign(&block, 4096, kTooMuch) == 0) hold(block);
  }));
  EXPECT_FALSE(run([](auto...) { const std::vector<char> bytes(kTooMuch); }));
}

TEST_F(ReplayTest, ARunawayEndsTheProgram) {
  input("a", "a");
  const auto runAway = [](auto...) { hold(std::malloc(AllocationMeter::kStop + 1)); };
  EXPECT_DEATH(run(runAway), "A runaway");
}

TEST_F(ReplayTest, WhatIsGivenBackDoesNotAddUp) {
  input("a", "a");
  EXPECT_TRUE(run([](auto...) {
    for (int i = 0; i < 10; ++i) hold(std::malloc(Replay::kHeapFixed / 2));
  }));
}
