// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/ProcessorShare.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

TEST(ProcessorShare, AJobAloneHasAllProcessors) {
  const auto job = ProcessorShare::own();
  const auto more = ProcessorShare::spare();
  EXPECT_EQ(job.count(), 1U);
  EXPECT_EQ(job.count() + more.count(), ProcessorShare::processors());
  EXPECT_EQ(ProcessorShare::spare().count(), 0U);
}

TEST(ProcessorShare, WhatAJobGivesBackTheNextOneGets) {
  const auto job = ProcessorShare::own();
  { const auto more = ProcessorShare::spare(); }
  EXPECT_EQ(ProcessorShare::spare().count() + 1, ProcessorShare::processors());
}

TEST(ProcessorShare, ManyJobsHaveOneEach) {
  std::vector<std::unique_ptr<const ProcessorShare>> jobs;
  while (jobs.size() < 2 * ProcessorShare::processors()) {
    jobs.emplace_back(new ProcessorShare(ProcessorShare::own()));
  }
  EXPECT_EQ(ProcessorShare::spare().count(), 0U);
}

TEST(ProcessorShare, ThreadsNeverGetMoreThanThereAre) {
  std::atomic<unsigned> held{0};
  std::atomic<bool> isTooMany{false};
  const auto work = [&] {
    for (int i = 0; i < 10000; ++i) {
      const auto more = ProcessorShare::spare();
      if ((held += more.count()) > ProcessorShare::processors()) isTooMany = true;
      held -= more.count();
    }
  };
  {
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) threads.emplace_back(work);
  }
  EXPECT_FALSE(isTooMany);
  EXPECT_EQ(ProcessorShare::spare().count(), ProcessorShare::processors());
}

}  // namespace
