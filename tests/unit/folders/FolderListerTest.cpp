// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FolderLister.h"

#include <gmock/gmock.h>
#include <sys/syscall.h>

#include <QCoreApplication>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <semaphore>
#include <thread>
#include <vector>

#include "base/ThreadSignal.h"
#include "support/Confinement.h"
#include "support/CoreApplication.h"
#include "support/EventLoop.h"
#include "support/RefusedCopy.h"
#include "support/TemporaryFolder.h"

namespace {

class Lister : public testing::Test {
 protected:
  /// Runs the event loop until all that was raised before has been told.
  void runAll() {
    bool isTold = false;
    ThreadSignal last([&isTold] { isTold = true; });
    last.raise();
    EXPECT_TRUE(EventLoop::runUntil([&isTold] { return isTold; }));
    QCoreApplication::processEvents();
  }
  /// Until no more threads list than there are listers that may start one, and all have put down
  /// their answers, wanted or not. The test's time limit is the only one.
  void waitForLooks(long listers) const {
    while (watch.use_count() > 1 + listers) std::this_thread::yield();
  }
  /// Lists; each thread holds on to the watch until its answer is put down.
  [[nodiscard]] FolderLister::Look watched() const {
    return [watch = watch](const auto& question) { return FolderLister::answerTo(question); };
  }
  [[nodiscard]] FolderLister::Question about(const TemporaryFolder& place) const {
    return {place.path(), {other.path()}, answers.empty() ? nullptr : answers.back().listing};
  }
  [[nodiscard]] std::size_t rows() const { return answers.back().listing->files().size(); }

  CoreApplication application;
  TemporaryFolder folder;
  TemporaryFolder other;
  std::vector<FolderLister::Answer> answers;
  FolderLister::Done tell = [this](const FolderLister::Answer& answer) {
    answers.push_back(answer);
  };
  FolderLister lister{tell};
  std::shared_ptr<int> watch = std::make_shared<int>();
};

TEST_F(Lister, AnswersFromTheEventLoop) {
  folder.file("a.wav", {});
  lister.list(about(folder));
  EXPECT_TRUE(answers.empty());
  ASSERT_TRUE(EventLoop::runUntil([this] { return !answers.empty(); }));
  EXPECT_EQ(answers[0].listing->folderPath(), folder.path());
  EXPECT_EQ(rows(), 1U);
  EXPECT_FALSE(answers[0].isSame);
}

TEST_F(Lister, LooksAgainWhereItWasAskedMeanwhile) {
  lister.list(about(folder));
  folder.file("late.wav", {});
  lister.list(about(folder));
  ASSERT_TRUE(EventLoop::runUntil([this] { return answers.size() == 2; }));
  EXPECT_EQ(rows(), 1U);
}

TEST_F(Lister, GivesUpTheFolderThatIsNoLongerWanted) {
  std::binary_semaphore door{0};
  FolderLister choosy(tell, [&, look = watched()](const FolderLister::Question& question) {
    if (question.folder == folder.path()) door.acquire();
    return look(question);
  });
  choosy.list(about(folder));
  choosy.list(about(other));
  EXPECT_TRUE(EventLoop::runUntil([this] { return !answers.empty(); }));
  door.release();
  waitForLooks(1);
  runAll();
  ASSERT_EQ(answers.size(), 1U);
  EXPECT_EQ(answers[0].listing->folderPath(), other.path());
}

TEST_F(Lister, KeepsUpWithAFolderThatChangesAllTheTime) {
  constexpr int kFiles = 100;
  for (int i = 0; i < kFiles; ++i) {
    folder.file(std::to_string(i) + ".wav", {});
    lister.list(about(folder));
    if (i % 3 == 0) QCoreApplication::processEvents();
  }
  ASSERT_TRUE(EventLoop::runUntil([this] { return !answers.empty() && rows() == kFiles; }));
}

TEST_F(Lister, MayGoWhileItLists) {
  for (int i = 0; i < 50; ++i) {
    FolderLister brief([](const FolderLister::Answer&) { FAIL() << "nobody is there any more"; },
                       watched());
    brief.list(about(folder));
  }
  waitForLooks(0);
  runAll();
}

// As where there are too many threads.
int listWithoutThreads(const std::filesystem::path& folder, bool isKnown) {
  if (!Confinement::failSystemCall(SYS_clone3, EAGAIN)) return 1;
  if (!Confinement::failSystemCall(SYS_clone, EAGAIN)) return 2;
  std::optional<FolderLister::Answer> told;
  FolderLister lister([&told](const FolderLister::Answer& answer) { told = answer; },
                      [](const FolderLister::Question&) -> FolderLister::Answer { std::_Exit(3); });
  const auto known = isKnown ? std::make_shared<const FolderHelper>(folder) : nullptr;
  lister.list({folder, {}, known});
  if (told || !EventLoop::runUntil([&told] { return told.has_value(); })) return 4;
  if (isKnown) return told->listing == known && told->isSame ? 0 : 5;
  return told->listing->files().empty() && !told->listing->failure().empty() ? 0 : 6;
}

TEST_F(Lister, WithoutAThreadNobodyLooksHere) {
  folder.file("a.wav", {});
  for (const bool isKnown : {false, true}) {
    EXPECT_EQ(Confinement::run([&] { return listWithoutThreads(folder.path(), isKnown); }), 0);
  }
}

TEST_F(Lister, WithoutMemoryForAThreadNobodyLooksHere) {
  const RefusedCopy memory;
  FolderLister poor(tell, [memory](const FolderLister::Question& question) {
    return FolderLister::answerTo(question);
  });
  memory.refuse();
  poor.list(about(folder));
  EXPECT_TRUE(answers.empty());
  ASSERT_TRUE(EventLoop::runUntil([this] { return !answers.empty(); }));
  EXPECT_EQ(answers.back().listing->failure(), "no thread can be had");
}

TEST_F(Lister, WhereMemoryRunsOutTheFolderCannotBeRead) {
  FolderLister poor(tell, [](const FolderLister::Question& /*question*/) -> FolderLister::Answer {
    throw std::bad_alloc();
  });
  poor.list(about(folder));
  ASSERT_TRUE(EventLoop::runUntil([this] { return !answers.empty(); }));
  EXPECT_EQ(answers[0].listing->folderPath(), folder.path());
  EXPECT_EQ(answers[0].listing->failure(), "There is not enough memory");
  EXPECT_FALSE(poor.isListing());
}

TEST_F(Lister, TellsWhetherAnythingChanged) {
  folder.file("a.wav", {});
  lister.list(about(folder));
  ASSERT_TRUE(EventLoop::runUntil([this] { return answers.size() == 1; }));
  lister.list(about(folder));
  ASSERT_TRUE(EventLoop::runUntil([this] { return answers.size() == 2; }));
  EXPECT_TRUE(answers[1].isSame);
}

}  // namespace
