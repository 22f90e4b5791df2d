// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "midi/MIDICommon.h"
#include "midi/MIDISequenceBase.h"
#include "midi/QtMIDIClock.h"
#include "support/CoreApplication.h"
#include "support/EventLoop.h"

namespace {

/// An application whose main thread is the test's.
class MIDIThreadTest : public testing::Test {
 protected:
  CoreApplication application;
  const std::thread::id main = std::this_thread::get_id();
};

TEST_F(MIDIThreadTest, RunsAtOnceOnTheMainThread) {
  bool isDone = false;
  MIDICommon::runOnUIThread([&isDone] { isDone = true; });
  EXPECT_TRUE(isDone);
}

TEST_F(MIDIThreadTest, RunsInsideItself) {
  int depth = 0;
  MIDICommon::runOnUIThread([&depth] {
    ++depth;
    MIDICommon::runOnUIThread([&depth] { ++depth; });
  });
  EXPECT_EQ(depth, 2);
}

TEST_F(MIDIThreadTest, MovesToTheMainThreadAndWaits) {
  std::thread::id ranOn;
  bool wasDone = false;
  bool isFinished = false;
  std::thread worker([&] {
    bool isDone = false;
    MIDICommon::runOnUIThread([&] {
      ranOn = std::this_thread::get_id();
      isDone = true;
    });
    wasDone = isDone;
    MIDICommon::runOnUIThread([&isFinished] { isFinished = true; });
  });
  EXPECT_TRUE(EventLoop::runUntil([&isFinished] { return isFinished; }));
  worker.join();
  EXPECT_EQ(ranOn, main);
  EXPECT_TRUE(wasDone);
}

TEST_F(MIDIThreadTest, TakesTasksOfManyThreadsOneAtATime) {
  constexpr int kThreads = 8;
  constexpr int kTasks = 200;
  int sum = 0;
  std::vector<std::thread> workers;
  for (int i = 0; i < kThreads; ++i) {
    workers.emplace_back([&sum] {
      for (int k = 0; k < kTasks; ++k) MIDICommon::runOnUIThread([&sum] { ++sum; });
    });
  }
  EXPECT_TRUE(EventLoop::runUntil([&sum] { return sum == kThreads * kTasks; }));
  for (std::thread& worker : workers) worker.join();
  EXPECT_EQ(sum, kThreads * kTasks);
}

TEST_F(MIDIThreadTest, RunsInTheBackground) {
  std::thread::id ranOn;
  bool isFinished = false;
  MIDICommon::runBackground([&] {
    ranOn = std::this_thread::get_id();
    MIDICommon::runOnUIThread([&isFinished] { isFinished = true; });
  });
  EXPECT_TRUE(EventLoop::runUntil([&isFinished] { return isFinished; }));
  EXPECT_NE(ranOn, main);
}

TEST_F(MIDIThreadTest, ComesBackFromTheBackground) {
  constexpr int kTasks = 100;
  int sum = 0;
  for (int i = 0; i < kTasks; ++i) {
    MIDICommon::runBackground([&sum] { MIDICommon::runOnUIThread([&sum] { ++sum; }); });
  }
  EXPECT_TRUE(EventLoop::runUntil([&sum] { return sum == kTasks; }));
  EXPECT_EQ(sum, kTasks);
}

// Two tasks that wait for each other end only side by side.
TEST_F(MIDIThreadTest, RunsBackgroundTasksSideBySide) {
  std::atomic<int> arrived = 0;
  int finished = 0;
  for (int i = 0; i < 2; ++i) {
    MIDICommon::runBackground([&] {
      ++arrived;
      arrived.notify_all();
      for (int seen = arrived; seen < 2; seen = arrived) arrived.wait(seen);
      MIDICommon::runOnUIThread([&finished] { ++finished; });
    });
  }
  EXPECT_TRUE(EventLoop::runUntil([&finished] { return finished == 2; }));
  EXPECT_EQ(arrived, 2);
}

TEST_F(MIDIThreadTest, FiresATimerOnce) {
  QtMIDIClock clock;
  int fired = 0;
  const auto start = clock.hostTime();
  const auto timer = clock.after(0.02, [&fired] { ++fired; });
  EXPECT_EQ(fired, 0);
  EXPECT_TRUE(EventLoop::runUntil([&fired] { return fired > 0; }));
  EXPECT_GE(clock.hostTime() - start, 19'000'000U);
  bool isLater = false;
  const auto later = clock.after(0.05, [&isLater] { isLater = true; });
  EXPECT_TRUE(EventLoop::runUntil([&isLater] { return isLater; }));
  EXPECT_EQ(fired, 1);
}

TEST_F(MIDIThreadTest, DoesNotFireACancelledTimer) {
  QtMIDIClock clock;
  bool isFired = false;
  bool isLater = false;
  auto timer = clock.after(0.01, [&isFired] { isFired = true; });
  const auto later = clock.after(0.05, [&isLater] { isLater = true; });
  timer.reset();
  EXPECT_TRUE(EventLoop::runUntil([&isLater] { return isLater; }));
  EXPECT_FALSE(isFired);
}

TEST_F(MIDIThreadTest, LetsATimerBeDroppedWhileItFires) {
  QtMIDIClock clock;
  std::unique_ptr<MIDITimer> timer;
  bool isFired = false;
  timer = clock.after(0.0, [&timer, &isFired] {
    timer.reset();
    isFired = true;
  });
  EXPECT_TRUE(EventLoop::runUntil([&isFired] { return isFired; }));
  EXPECT_EQ(timer, nullptr);
}

TEST_F(MIDIThreadTest, TimesOutOnTheMainThreadWhoeverAsked) {
  struct Timed : MIDISequenceBase {
    void sequenceTimeOut(const std::string& /*description*/) override {
      ranOn = std::this_thread::get_id();
      isOut = true;
    }
    std::thread::id ranOn;
    bool isOut = false;
  } sequence;
  std::thread worker([&sequence] { sequence.markTimeOut(0.01); });
  EXPECT_TRUE(EventLoop::runUntil([&sequence] { return sequence.isOut; }));
  worker.join();
  EXPECT_EQ(sequence.ranOn, main);
}

TEST(MIDIThreadWithoutApplication, RunsAtOnce) {
  bool isDone = false;
  MIDICommon::runOnUIThread([&isDone] { isDone = true; });
  EXPECT_TRUE(isDone);
}

}  // namespace
