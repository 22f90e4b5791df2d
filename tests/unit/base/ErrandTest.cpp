// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/Errand.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <QCoreApplication>
#include <atomic>
#include <cerrno>
#include <latch>
#include <memory>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include "support/Confinement.h"
#include "support/CoreApplication.h"
#include "support/EventLoop.h"

namespace {

class ErrandTest : public testing::Test {
  CoreApplication _application;
};

/// Tells on which thread it went.
class Found {
 public:
  explicit Found(std::atomic<std::thread::id>& gone) : _gone(gone) {}
  Found(const Found&) = delete;
  Found& operator=(const Found&) = delete;
  ~Found() { _gone = std::this_thread::get_id(); }

 private:
  std::atomic<std::thread::id>& _gone;
};

TEST_F(ErrandTest, WorkIsDoneElsewhereAndItsOutcomeHere) {
  std::thread::id worked;
  std::thread::id heard;
  Errand errand;
  EXPECT_TRUE(errand.begin([&worked, &heard] {
    worked = std::this_thread::get_id();
    return [&heard] { heard = std::this_thread::get_id(); };
  }));
  EXPECT_TRUE(errand.isUnderWay());
  ASSERT_TRUE(EventLoop::runUntil([&] { return heard != std::thread::id(); }));
  EXPECT_EQ(heard, std::this_thread::get_id());
  EXPECT_NE(worked, heard);
  EXPECT_FALSE(errand.isUnderWay());
}

TEST_F(ErrandTest, WhatWasGivenUpIsNotHeardAndGoesOnItsThread) {
  std::latch mayGoOn(1);
  std::atomic<std::thread::id> gone;
  bool isHeard = false;
  auto errand = std::make_unique<Errand>();
  errand->begin([&] {
    auto found = std::make_shared<Found>(gone);
    mayGoOn.wait();
    return [&isHeard, found] { isHeard = true; };
  });
  errand->giveUp();
  EXPECT_FALSE(errand->isUnderWay());
  errand.reset();
  mayGoOn.count_down();
  ASSERT_TRUE(EventLoop::runUntil([&] { return gone.load() != std::thread::id(); }));
  EXPECT_NE(gone.load(), std::this_thread::get_id());
  EXPECT_FALSE(isHeard);
}

TEST_F(ErrandTest, WhatWasGivenUpAfterItHadArrivedGoesOnItsThreadToo) {
  for (int round = 0; round < 50; ++round) {
    std::atomic<bool> isReturning{false};
    std::atomic<std::thread::id> gone;
    Errand errand;
    errand.begin([&] {
      auto found = std::make_shared<Found>(gone);
      isReturning = true;
      return [found] { FAIL() << "nobody listens"; };
    });
    while (!isReturning) std::this_thread::yield();
    for (int turn = 0; turn < 1000; ++turn) std::this_thread::yield();
    errand.giveUp();
    ASSERT_TRUE(EventLoop::runUntil([&] { return gone.load() != std::thread::id(); }));
    ASSERT_NE(gone.load(), std::this_thread::get_id());
  }
}

TEST_F(ErrandTest, WhatWasHeardGoesOnItsThread) {
  std::atomic<std::thread::id> gone;
  bool isHeard = false;
  Errand errand;
  errand.begin(
      [&] { return [&isHeard, found = std::make_shared<Found>(gone)] { isHeard = true; }; });
  ASSERT_TRUE(EventLoop::runUntil([&] { return gone.load() != std::thread::id(); }));
  EXPECT_TRUE(isHeard);
  EXPECT_NE(gone.load(), std::this_thread::get_id());
}

TEST_F(ErrandTest, AnotherOneVoidsTheFirstEvenWhereItHasArrived) {
  std::atomic<bool> isDone{false};
  std::vector<int> heard;
  Errand errand;
  errand.begin([&] {
    isDone = true;
    return [&heard] { heard.push_back(1); };
  });
  while (!isDone) std::this_thread::yield();
  errand.begin([&heard] { return [&heard] { heard.push_back(2); }; });
  ASSERT_TRUE(EventLoop::runUntil([&] { return !heard.empty(); }));
  QCoreApplication::processEvents();
  EXPECT_EQ(heard, std::vector<int>{2});
}

TEST_F(ErrandTest, OutcomeMayBeginAnotherOrDeleteTheErrand) {
  int heard = 0;
  auto errand = std::make_unique<Errand>();
  errand->begin([&] {
    return [&] {
      ++heard;
      errand->begin([&] {
        return [&] {
          ++heard;
          errand.reset();
        };
      });
    };
  });
  EXPECT_TRUE(EventLoop::runUntil([&] { return errand == nullptr; }));
  EXPECT_EQ(heard, 2);
}

TEST_F(ErrandTest, WorkThatThrowsIsHeardAsAReason) {
  std::string why;
  std::thread::id heard;
  Errand errand;
  errand.begin([]() -> Errand::Outcome { throw std::bad_alloc(); },
               [&](const std::string& reason) {
                 why = reason;
                 heard = std::this_thread::get_id();
               });
  ASSERT_TRUE(EventLoop::runUntil([&] { return !errand.isUnderWay(); }));
  EXPECT_EQ(why, "There is not enough memory");
  EXPECT_EQ(heard, std::this_thread::get_id());
}

TEST_F(ErrandTest, WorkThatThrowsEndsEvenWhereNobodyAsksWhy) {
  Errand errand;
  errand.begin([]() -> Errand::Outcome { throw std::bad_alloc(); });
  EXPECT_TRUE(EventLoop::runUntil([&] { return !errand.isUnderWay(); }));
}

TEST_F(ErrandTest, WithoutAThreadNothingIsUnderWay) {
  const int status = Confinement::run([] {
    Errand errand;
    if (!Confinement::failSystemCall(SYS_clone3, EAGAIN)) return 1;
    if (!Confinement::failSystemCall(SYS_clone, EAGAIN)) return 2;
    if (errand.begin([] { return [] {}; })) return 3;
    return errand.isUnderWay() ? 4 : 0;
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
