// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/ThreadSignal.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <chrono>
#include <memory>
#include <thread>

namespace {

class ThreadSignalTest : public testing::Test {
 protected:
  // What deletes itself later does so now.
  void TearDown() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  /// Runs the event loop until the condition holds.
  template <class Condition>
  void runUntil(Condition condition) {
    QTimer deadline;
    deadline.setSingleShot(true);
    deadline.start(std::chrono::seconds(20));
    while (!condition() && deadline.isActive()) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_TRUE(condition());
  }

  int count = 1;
  char name[5] = "test";
  char* arguments[2] = {name, nullptr};
  QCoreApplication application{count, arguments};
};

TEST_F(ThreadSignalTest, WakesTheLoopFromAnotherThread) {
  std::thread::id seen;
  ThreadSignal signal([&] { seen = std::this_thread::get_id(); });
  std::thread([&] { signal.raise(); }).join();
  runUntil([&] { return seen != std::thread::id(); });
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
  runUntil([&] { return isCalled; });
}

}  // namespace
