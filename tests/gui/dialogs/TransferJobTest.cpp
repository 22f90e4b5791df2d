// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/TransferJob.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

#include "base/EndPatience.h"
#include "base/SteadyTime.h"
#include "support/EventLoop.h"

namespace {

using namespace std::chrono_literals;

void waitForCancel(const TransferJob::Desk& desk) {
  while (!desk.cancel()) std::this_thread::yield();
}

TEST(TransferJobTest, ItsEndWaitsForTheWorkThatItEnds) {
  const auto hasEnded = std::make_shared<std::atomic<bool>>(false);
  {
    TransferJob job;
    job.setPatience(10min);
    job.begin([hasEnded](TransferJob::Desk& desk) {
      waitForCancel(desk);
      std::this_thread::sleep_for(20ms);
      *hasEnded = true;
      return TransferJob::End();
    });
  }
  EXPECT_TRUE(*hasEnded);
}

TEST(TransferJobTest, ItsEndDoesNotWaitForAMediumThatHangs) {
  const auto mayGoOn = std::make_shared<std::atomic<bool>>(false);
  const auto hasEnded = std::make_shared<std::atomic<bool>>(false);
  {
    TransferJob job;
    job.setPatience(1ms);
    job.begin([mayGoOn, hasEnded](TransferJob::Desk& /*desk*/) {
      while (!*mayGoOn) std::this_thread::yield();
      *hasEnded = true;
      return TransferJob::End();
    });
  }
  EXPECT_FALSE(*hasEnded);
  *mayGoOn = true;
  EXPECT_TRUE(EventLoop::runUntil([&] { return hasEnded->load(); })) << "it ends by itself";
}

TEST(TransferJobTest, ItsEndWaitsNoLongerThanThatOfTheProgram) {
  const auto mayGoOn = std::make_shared<std::atomic<bool>>(false);
  auto now = 0ms;
  const EndPatience end([&now] { return now; });
  const auto began = SteadyTime::now();
  {
    TransferJob job;
    job.setPatience(20s);
    job.begin([mayGoOn](TransferJob::Desk& /*desk*/) {
      while (!*mayGoOn) std::this_thread::sleep_for(1ms);
      return TransferJob::End();
    });
    now = EndPatience::kWhole;
  }
  EXPECT_LT(SteadyTime::now() - began, 10s);
  *mayGoOn = true;
}

}  // namespace
