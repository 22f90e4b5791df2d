// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/ThreadSignal.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <memory>
#include <thread>

#include "support/CoreApplication.h"
#include "support/EventLoop.h"

namespace {

class ThreadSignalTest : public testing::Test {
  CoreApplication _application;
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
