// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/WorkerPool.h"

#include <gtest/gtest.h>

#include <future>
#include <new>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace {

/// Threads that are started are only written down; some cannot be.
class WorkerPoolTest : public testing::Test {
 protected:
  void startThread(const std::function<void()>& work) {
    if (started.size() >= allowed) throw std::system_error(EAGAIN, std::generic_category());
    started.push_back(work);
  }

  std::size_t allowed = 0;
  std::vector<std::function<void()>> started;
  WorkerPool pool{[this](const std::function<void()>& work) { startThread(work); }};
};

TEST_F(WorkerPoolTest, WithoutAnyThreadATaskIsRefusedWithTheReason) {
  bool isRun = false;
  EXPECT_EQ(pool.start([&isRun] { isRun = true; }), "Resource temporarily unavailable");
  EXPECT_FALSE(isRun);
}

TEST(WorkerPool, WithoutMemoryForAThreadATaskIsRefusedWithTheReason) {
  WorkerPool pool([](const std::function<void()>&) { throw std::bad_alloc(); });
  bool isRun = false;
  EXPECT_EQ(pool.start([&isRun] { isRun = true; }), "There is not enough memory");
  EXPECT_FALSE(isRun);
}

TEST_F(WorkerPoolTest, IsTriedAgainWithTheNextTask) {
  EXPECT_NE(pool.start([] {}), "");
  allowed = 1;
  EXPECT_EQ(pool.start([] {}), "");
  EXPECT_EQ(started.size(), 1U);
}

TEST(WorkerPool, ATaskThatThrowsKeepsNoOtherFromBeingDone) {
  std::promise<std::thread::id> thrown;
  std::promise<std::thread::id> done;
  auto& pool = *new WorkerPool([isFirst = true](std::function<void()> work) mutable {
    if (!std::exchange(isFirst, false)) throw std::system_error(EAGAIN, std::generic_category());
    std::thread(std::move(work)).detach();
  });
  const auto fail = [&thrown] {
    thrown.set_value(std::this_thread::get_id());
    throw std::bad_alloc();
  };
  EXPECT_EQ(pool.start(fail), "");
  EXPECT_EQ(pool.start([&done] { done.set_value(std::this_thread::get_id()); }), "");
  EXPECT_EQ(thrown.get_future().get(), done.get_future().get());
}

TEST_F(WorkerPoolTest, ATaskWithoutAThreadOfItsOwnWaitsForAnother) {
  allowed = 1;
  EXPECT_EQ(pool.start([] {}), "");
  EXPECT_EQ(pool.start([] {}), "") << "taken, though no second thread can be started";
  EXPECT_EQ(started.size(), 1U);
}

}  // namespace
