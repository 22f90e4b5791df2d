// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/ThreadSignal.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <memory>
#include <thread>

#include "support/EventLoop.h"

namespace {

class ThreadSignalTest : public testing::Test {
 protected:
  // What deletes itself later does so now.
  void TearDown() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  int count = 1;
  char name[5] = "test";
  char* arguments[2] = {name, nullptr};
  QCoreApplication application{count, arguments};
};

TEST_F(ThreadSignalTest, WakesTheLoopFromAnotherThread) {
  std::thread::id seen;
  ThreadSignal signal([&] { seen = std::this_thread::get_id(); });
  std::thread([&] { signal.raise(); }).join();
  ASSERT_TRUE(EventLoop::runUntil([&] { return seen != std::thread::id(); }));
  EXPECT_EQ(seen, std::this_thread::get_id());
}

TEST_F(ThreadSignalTest, MayBeDeletedByItsOwnCall) {
  bool isCalled = false;
  std::unique_ptr<ThreadSignal> signal;
  signal = std::make_unique<ThreadSignal>([&] {
    signal.reset();
    isCalled = true;
  });
  signal->raise();
  EXPECT_TRUE(EventLoop::runUntil([&] { return isCalled; }));
}

}  // namespace
