// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/WorkerPool.h"

#include <gtest/gtest.h>

#include <system_error>
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

TEST_F(WorkerPoolTest, IsTriedAgainWithTheNextTask) {
  EXPECT_NE(pool.start([] {}), "");
  allowed = 1;
  EXPECT_EQ(pool.start([] {}), "");
  EXPECT_EQ(started.size(), 1U);
}

TEST_F(WorkerPoolTest, ATaskWithoutAThreadOfItsOwnWaitsForAnother) {
  allowed = 1;
  EXPECT_EQ(pool.start([] {}), "");
  EXPECT_EQ(pool.start([] {}), "") << "taken, though no second thread can be started";
  EXPECT_EQ(started.size(), 1U);
}

}  // namespace
