// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Helpers.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <atomic>
#include <cerrno>
#include <functional>

#include "support/Confinement.h"
#include "support/RefusedCopy.h"

namespace {

TEST(HelpersTest, AllThreadsDoTheWork) {
  for (const std::size_t threads : {0U, 1U, 2U, 5U}) {
    std::atomic<std::size_t> done{0};
    Helpers::run(threads, [&done] { ++done; });
    EXPECT_EQ(done, std::max<std::size_t>(threads, 1));
  }
}

TEST(HelpersTest, TheCallerDoesItWhereNoThreadCanBeStarted) {
  EXPECT_EQ(Confinement::run([] {
              if (!Confinement::failSystemCall(SYS_clone3, EAGAIN) ||
                  !Confinement::failSystemCall(SYS_clone, EAGAIN)) {
                return 1;
              }
              std::atomic<int> done{0};
              Helpers::run(4, [&done] { ++done; });
              return done == 1 ? 0 : 2;
            }),
            0);
}

TEST(HelpersTest, TheCallerDoesItWhereThereIsNoMemoryForAThread) {
  const RefusedCopy memory;
  std::atomic<int> done{0};
  const std::function<void()> work = [memory, &done] { ++done; };
  memory.refuse();
  Helpers::run(4, work);
  EXPECT_EQ(done, 1);
}

}  // namespace
