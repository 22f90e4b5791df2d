// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/CardCopy.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "CardFixture.h"

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

using CardCopyTest = CardFixture;

TEST_F(CardCopyTest, BringsEveryTakeHome) {
  EXPECT_TRUE(copy());
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV copied", "R0001.WAV copied", "R0002.wav copied"));
  EXPECT_THAT(homeNames(),
              ElementsAre("DAY2/R0003.WAV", "R0001.WAV", "R0002.wav", "ascmhl/ascmhl_chain.xml"));
  EXPECT_EQ(read("home/R0001.WAV"), read("card/R0001.WAV"));
  EXPECT_EQ(read("home/DAY2/R0003.WAV"), read("card/DAY2/R0003.WAV"));
  EXPECT_TRUE(isRight());
}

TEST_F(CardCopyTest, ACopyTellsWhenItsTakeWasMade) {
  const auto made = fs::file_time_type::clock::now() - std::chrono::hours(1000);
  fs::last_write_time(card() / "R0001.WAV", made);
  copy();
  EXPECT_EQ(fs::last_write_time(home() / "R0001.WAV"), made);
}

TEST_F(CardCopyTest, WhatWasVerifiedIsNotEvenRead) {
  copy();
  // Another content of the same length and time would be found by reading.
  const auto time = fs::last_write_time(home() / "R0001.WAV");
  std::fstream(home() / "R0001.WAV", std::ios::in | std::ios::out) << "another";
  fs::last_write_time(home() / "R0001.WAV", time);
  EXPECT_TRUE(copy());
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV kept", "R0001.WAV kept", "R0002.wav kept"));
  EXPECT_FALSE(isRight()) << "which verifying is for";
}

TEST_F(CardCopyTest, WhatAChangedManifestSaysIsComparedAndTold) {
  copy();
  const auto time = fs::last_write_time(home() / "R0001.WAV");
  std::fstream(home() / "R0001.WAV", std::ios::in | std::ios::out) << "another";
  fs::last_write_time(home() / "R0001.WAV", time);
  for (const auto& entry : fs::directory_iterator(home() / "ascmhl")) {
    if (entry.path().extension() == ".mhl") std::ofstream(entry.path(), std::ios::app) << "\n";
  }
  CardCopy job(card(), home());
  EXPECT_FALSE(run(job));
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV kept", "R0001.WAV differs", "R0002.wav kept"));
  EXPECT_THAT(job.problems(), ElementsAre(HasSubstr("it was changed after it was written")));
}

TEST_F(CardCopyTest, WhatAnotherProgramFoundChangedIsCompared) {
  copy();
  const auto time = fs::last_write_time(home() / "R0001.WAV");
  std::fstream(home() / "R0001.WAV", std::ios::in | std::ios::out) << "another";
  fs::last_write_time(home() / "R0001.WAV", time);
  ManifestFolder manifests(home());
  Manifest::Entry failed = manifests.files().at("R0001.WAV");
  failed.action = "failed";
  Manifest found;
  found.createdAt = Manifest::timeText(0);
  found.entries = {failed};
  ASSERT_EQ(manifests.save(found) + manifests.finish(), "");
  CardCopy job(card(), home());
  EXPECT_FALSE(run(job));
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV kept", "R0001.WAV differs", "R0002.wav kept"));
  EXPECT_THAT(job.problems(), ElementsAre());
}

TEST_F(CardCopyTest, WhatIsThereWithoutAManifestIsCompared) {
  copy();
  fs::remove_all(home() / "ascmhl");
  EXPECT_TRUE(copy());
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV kept", "R0001.WAV kept", "R0002.wav kept"));
  EXPECT_TRUE(isRight());
  fs::remove_all(home() / "ascmhl");
  std::fstream(home() / "R0001.WAV", std::ios::in | std::ios::out) << "another";
  EXPECT_FALSE(copy());
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV kept", "R0001.WAV differs", "R0002.wav kept"));
}

TEST_F(CardCopyTest, WhatDiffersIsKeptAndTold) {
  fs::create_directories(home() / "R0002.wav");
  put("home/R0001.WAV", Bytes(7));
  EXPECT_FALSE(copy());
  EXPECT_THAT(_told,
              ElementsAre("DAY2/R0003.WAV copied", "R0001.WAV differs", "R0002.wav differs"));
  EXPECT_THAT(_reasons, ElementsAre("", "The take has 3000001 bytes, the file that is there 7",
                                    "What is there is no file"));
  EXPECT_EQ(read("home/R0001.WAV"), Bytes(7));
}

TEST_F(CardCopyTest, ATakeThatIsNewIsAddedInANewGeneration) {
  copy();
  put("card/R0004.WAV", Bytes(5));
  EXPECT_TRUE(copy());
  EXPECT_EQ(_told.back(), "R0004.WAV copied");
  EXPECT_TRUE(isRight());
  EXPECT_EQ(std::distance(fs::directory_iterator(home() / "ascmhl"), fs::directory_iterator()), 3);
}

TEST_F(CardCopyTest, ProgressReachesAllBytesAndNeverGoesBack) {
  for (const bool isCompared : {false, true}) {
    fs::remove_all(home() / "ascmhl");
    CardCopy job(card(), home());
    std::vector<std::uint64_t> done;
    job.setProgress([&](const CardCopy::Progress& progress) {
      EXPECT_EQ(progress.total, kLong + 1000);
      EXPECT_EQ(progress.takes, 3U);
      done.push_back(progress.done);
    });
    EXPECT_TRUE(run(job));
    EXPECT_TRUE(std::is_sorted(done.begin(), done.end())) << isCompared;
    EXPECT_GT(done.size(), 6U);
    EXPECT_EQ(done.back(), kLong + 1000);
    EXPECT_EQ(job.copiedBytes(), isCompared ? 0 : kLong + 1000);
  }
}

// What was known takes no time, and tells nothing of how fast the rest will be.
TEST_F(CardCopyTest, ProgressTellsWhatWasReallyWorkedOn) {
  copy();
  put("card/R0004.WAV", Bytes(5));
  CardCopy job(card(), home());
  CardCopy::Progress last;
  job.setProgress([&last](const CardCopy::Progress& progress) { last = progress; });
  EXPECT_TRUE(run(job));
  EXPECT_EQ(last.done, kLong + 1000 + 5);
  EXPECT_EQ(last.worked, 5);
}

// A manifest waits for the disk: one for each of many short takes would take longer than they do.
TEST_F(CardCopyTest, AManifestIsWrittenAfterSoManyBytes) {
  put("card/DAY2/R0004.WAV", {});
  fs::resize_file(card() / "DAY2/R0004.WAV", 1 << 27);
  CardCopy job(card(), home());
  std::vector<bool> isManifestThere;
  job.setProgress([&](const CardCopy::Progress& progress) {
    if (isManifestThere.size() == progress.takesDone) return;
    const fs::path folder = home() / "ascmhl";
    isManifestThere.push_back(fs::exists(folder) &&
                              std::any_of(fs::directory_iterator(folder), fs::directory_iterator(),
                                          [](const fs::directory_entry& entry) {
                                            return entry.path().extension() == ".mhl";
                                          }));
  });
  EXPECT_TRUE(run(job));
  EXPECT_THAT(isManifestThere, ElementsAre(false, false, true, true));
  EXPECT_TRUE(isRight());
}

// The last byte of what has no name yet, as a bad disk would.
void changeWhatWasWritten(const fs::path& folder) {
  for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
    std::error_code error;
    const std::string target = fs::read_symlink(entry.path(), error).native();
    if (target.rfind(folder.native() + "/#", 0) != 0) continue;
    std::fstream file(entry.path(), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(-1, std::ios::end).put('!');
  }
}

TEST_F(CardCopyTest, WhatDoesNotReadBackGetsNoName) {
  constexpr std::size_t kSize = 1 << 24;  // more than is read ahead
  fs::remove_all(card() / "DAY2");
  put("card/R0001.WAV", Bytes(kSize, std::byte{1}));
  CardCopy job(card(), home());
  bool isChanged = false;
  job.setProgress([&](const CardCopy::Progress& progress) {
    if (isChanged || progress.done <= kSize / 2) return;
    changeWhatWasWritten(home());
    isChanged = true;
  });
  EXPECT_FALSE(run(job));
  EXPECT_THAT(_told, ElementsAre("R0001.WAV failed", "R0002.wav copied"));
  EXPECT_EQ(_reasons.front(), "What was written does not read back as it was");
  EXPECT_FALSE(fs::exists(home() / "R0001.WAV"));
}

// At each step: nothing half done is there, what is there is right, and the next copy makes it
// whole.
TEST_F(CardCopyTest, ACancelAtAnyStepLeavesNothingHalfDone) {
  int rounds = 0;
  for (int step = 0; step < 12; ++step) {
    fs::remove_all(home());
    std::atomic<bool> cancel{false};
    CardCopy job(card(), home());
    job.setCancelFlag(&cancel);
    int steps = 0;
    job.setProgress(
        [&](const CardCopy::Progress& /*progress*/) { cancel = steps++ == step || cancel; });
    if (run(job)) break;
    ++rounds;
    EXPECT_TRUE(job.wasCancelled());
    for (const std::string& name : homeNames()) {
      if (name.starts_with("ascmhl")) continue;
      EXPECT_EQ(read("home/" + name), read("card/" + name)) << step;
    }
    EXPECT_TRUE(copy()) << step;
    EXPECT_TRUE(isRight()) << step;
  }
  EXPECT_GE(rounds, 8) << "each block of each take, there and back, and more";
}

TEST_F(CardCopyTest, APulledCardEndsTheCopyAndWhatWasDoneStays) {
  CardCopy job(card(), home());
  job.setProgress([&](const CardCopy::Progress& progress) {
    if (progress.takesDone == 1) fs::remove_all(card());
  });
  EXPECT_FALSE(run(job));
  EXPECT_EQ(job.failure(), "The card is gone");
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV copied", "R0001.WAV failed"));
  EXPECT_THAT(homeNames(), ElementsAre("DAY2/R0003.WAV", "ascmhl/ascmhl_chain.xml"));
  EXPECT_TRUE(isRight());
}

TEST_F(CardCopyTest, ACardThatIsPulledOutEndsAComparisonToo) {
  copy();
  fs::remove_all(home() / "ascmhl");
  CardCopy job(card(), home());
  job.setProgress([&](const CardCopy::Progress& progress) {
    if (progress.takesDone == 1) fs::remove_all(card());
  });
  EXPECT_FALSE(run(job));
  EXPECT_EQ(job.failure(), "The card is gone");
  EXPECT_EQ(job.obstacle(), CardCopy::Obstacle::CardGone);
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV kept", "R0001.WAV failed"));
}

TEST_F(CardCopyTest, ATakeThatCannotBeReadForComparisonFailsAlone) {
  copy();
  fs::remove_all(home() / "ascmhl");
  fs::permissions(home(), fs::perms::all);
  const std::string found = withoutRightsTo(card() / "R0001.WAV", [this] {
    CardCopy job(card(), home());
    std::string text = run(job) ? "all there" : "not all there";
    for (const std::string& told : _told) text += ", " + told;
    return text + job.failure();
  });
  EXPECT_EQ(found, "not all there, DAY2/R0003.WAV kept, R0001.WAV failed, R0002.wav kept");
}

TEST_F(CardCopyTest, ACancelIsHeardBeforeTheCardIsListed) {
  const std::atomic<bool> cancel{true};
  CardCopy job(card(), home());
  job.setCancelFlag(&cancel);
  EXPECT_NE(job.prepare(), "");
  EXPECT_TRUE(job.wasCancelled());
  EXPECT_EQ(job.obstacle(), CardCopy::Obstacle::None);
  EXPECT_FALSE(fs::exists(home()));
}

TEST_F(CardCopyTest, ATakeThatGrowsMeanwhileFailsAndTheOthersAreCopied) {
  CardCopy job(card(), home());
  job.setProgress([&](const CardCopy::Progress& progress) {
    if (progress.takesDone == 1) fs::resize_file(card() / "R0001.WAV", kLong + 1);
  });
  EXPECT_FALSE(run(job));
  EXPECT_THAT(_told, ElementsAre("DAY2/R0003.WAV copied", "R0001.WAV failed", "R0002.wav copied"));
  EXPECT_EQ(_reasons[1], "It was changed while it was read");
  EXPECT_EQ(job.failure(), "");
}

TEST_F(CardCopyTest, OneCopyAtATimeWorksInAFolder) {
  CardCopy first(card(), home());
  ASSERT_EQ(first.prepare(), "");
  EXPECT_EQ(CardCopy(card(), home()).prepare(), "Another copy is at work there");
  EXPECT_EQ(CardCopy(card(), _folder.path() / "elsewhere").prepare(), "");
  EXPECT_TRUE(first.run());
  EXPECT_TRUE(isRight());
  EXPECT_EQ(CardCopy(card(), home()).prepare(), "") << "the first one is over";
}

TEST_F(CardCopyTest, AFolderThatIsBeingVerifiedIsNotCopiedInto) {
  copy();
  const ManifestLock check(home(), ManifestLock::Kind::Check);
  CardCopy job(card(), home());
  job.setPatience(std::chrono::milliseconds(0));
  EXPECT_EQ(job.prepare(), "The folder is being verified");
  EXPECT_EQ(job.obstacle(), CardCopy::Obstacle::FolderBusy);
}

TEST_F(CardCopyTest, ACopyThatDoesNotBeginLeavesNoManifests) {
  { ASSERT_EQ(CardCopy(card(), home()).prepare(), ""); }
  EXPECT_THAT(fs::exists(home() / "ascmhl"), false);
  EXPECT_TRUE(copy());
}

TEST_F(CardCopyTest, ANameThatCannotStandInAManifestIsNotCopied) {
  put("card/R\xE9.WAV", Bytes(5));
  EXPECT_FALSE(copy());
  EXPECT_EQ(_told.back(), "R\xE9.WAV failed");
}

TEST_F(CardCopyTest, AFolderThatCannotBeListedIsToldAndTheOthersAreCopied) {
  const std::string found = withoutRightsTo(card() / "DAY2", [this] {
    CardCopy job(card(), home());
    std::string text = run(job) ? "all there" : "not all there";
    for (const std::string& told : _told) text += ", " + told;
    for (const FolderFiles::Gap& gap : job.gaps()) text += ", " + gap.path.native();
    return text + job.failure();
  });
  EXPECT_EQ(found, "not all there, R0001.WAV copied, R0002.wav copied, DAY2");
  EXPECT_TRUE(isRight());
}

TEST_F(CardCopyTest, TellsWhatStandsInItsWay) {
  using Obstacle = CardCopy::Obstacle;
  const auto obstacle = [](const fs::path& card, const fs::path& home) {
    CardCopy job(card, home);
    job.prepare();
    return job.obstacle();
  };
  fs::create_directories(_folder.path() / "empty");
  EXPECT_EQ(obstacle(card(), home()), Obstacle::None);
  EXPECT_EQ(obstacle(card() / "R0001.WAV", home()), Obstacle::CardUnreadable);
  EXPECT_EQ(obstacle(_folder.path() / "empty", home()), Obstacle::CardEmpty);
  EXPECT_EQ(obstacle(card(), card() / "home"), Obstacle::Inside);
  put("file", Bytes(1));
  EXPECT_EQ(obstacle(card(), _folder.path() / "file" / "home"), Obstacle::FolderUnwritable);
  fs::resize_file(card() / "R0001.WAV", std::uintmax_t{1} << 43);
  EXPECT_EQ(obstacle(card(), home()), Obstacle::FolderFull);
}

TEST_F(CardCopyTest, TellsWhyItCannotBegin) {
  const auto whyNot = [](const fs::path& card, const fs::path& home) {
    return CardCopy(card, home).prepare();
  };
  fs::create_directories(_folder.path() / "empty");
  EXPECT_EQ(whyNot(_folder.path() / "none", home()),
            "The card cannot be read: No such file or directory");
  EXPECT_EQ(whyNot(card() / "R0001.WAV", home()), "The card is no folder");
  EXPECT_EQ(whyNot(_folder.path() / "empty", home()), "The card holds no takes");
  for (const fs::path& inside : {card(), card() / "home", card() / "DAY2" / ".." / "home"}) {
    EXPECT_EQ(whyNot(card(), inside), "The card is never written to, but holds the folder");
  }
  EXPECT_EQ(whyNot(card(), card() / "R0001.WAV" / "home").substr(0, 4), "The ");
  EXPECT_THAT(fs::exists(card() / "home"), false);
  fs::resize_file(card() / "R0001.WAV", std::uintmax_t{1} << 43);
  EXPECT_THAT(
      whyNot(card(), home()),
      testing::MatchesRegex("The takes and their manifest need 87960930[0-9]* bytes, and .*"));
}

}  // namespace
