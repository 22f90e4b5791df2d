// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/LatestErrand.h"

#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <atomic>
#include <cerrno>
#include <memory>
#include <new>
#include <string>
#include <thread>

#include "support/Confinement.h"
#include "support/CoreApplication.h"
#include "support/EventLoop.h"

namespace {

/// Work that goes on until it is cancelled or let go, and tells by a letter that it was heard.
class Latest : public testing::Test {
 protected:
  LatestErrand::Work held(char letter) {
    return work(letter, [](const std::atomic<bool>& cancel) { return cancel.load(); });
  }
  /// As where a medium hangs: it is not asked whether it was cancelled.
  LatestErrand::Work hanging(char letter) {
    return work(letter, [](const std::atomic<bool>& /*cancel*/) { return false; });
  }
  template <class IsOver>
  LatestErrand::Work work(char letter, IsOver isOver) {
    return [=, this, counts = counts](const std::atomic<bool>& cancel) -> Errand::Outcome {
      if (++counts->threads > 1) counts->wereSeveral = true;
      while (!isOver(cancel) && !counts->isLetGo) std::this_thread::yield();
      --counts->threads;
      return [this, letter] { heard += letter; };
    };
  }

  static LatestErrand::Work throwing() {
    return [](const std::atomic<bool>& /*cancel*/) -> Errand::Outcome { throw std::bad_alloc(); };
  }
  Errand::Failed noting() {
    return [this](const std::string& why) { heard += "(" + why + ")"; };
  }

  CoreApplication application;
  /// Outlives the test with a thread that does.
  struct Counts {
    std::atomic<int> threads{0};
    std::atomic<bool> wereSeveral{false};
    std::atomic<bool> isLetGo{false};
  };

  std::shared_ptr<Counts> counts = std::make_shared<Counts>();
  std::string heard;
  LatestErrand errand;
};

}  // namespace

TEST_F(Latest, IsHeardAloneAndNeverBesideAnother) {
  errand.ask(held('a'));
  errand.ask(held('b'));
  errand.ask(held('c'));
  counts->isLetGo = true;
  EXPECT_TRUE(EventLoop::runUntil([this] { return !errand.isUnderWay(); }));
  EXPECT_EQ(heard, "c");
  EXPECT_FALSE(counts->wereSeveral);
}

TEST_F(Latest, BeginsAgainAfterItsEnd) {
  counts->isLetGo = true;
  errand.ask(held('a'));
  EXPECT_TRUE(EventLoop::runUntil([this] { return heard == "a"; }));
  errand.ask(held('b'));
  EXPECT_TRUE(EventLoop::runUntil([this] { return heard == "ab"; }));
}

TEST_F(Latest, DroppedIsNotHeard) {
  errand.ask(held('a'));
  errand.ask(held('b'));
  ASSERT_TRUE(EventLoop::runUntil([this] { return counts->threads == 1; }));
  errand.drop();
  EXPECT_FALSE(errand.isUnderWay());
  EXPECT_TRUE(EventLoop::runUntil([this] { return counts->threads == 0; })) << "it was cancelled";
  EXPECT_EQ(heard, "");
}

TEST_F(Latest, AskedAgainAfterItWasCancelledWaitsForWhatHangs) {
  errand.ask(hanging('a'));
  ASSERT_TRUE(EventLoop::runUntil([this] { return counts->threads == 1; }));
  errand.cancel();
  EXPECT_TRUE(errand.isUnderWay());
  errand.ask(hanging('b'));
  errand.cancel();
  errand.ask(hanging('c'));
  counts->isLetGo = true;
  EXPECT_TRUE(EventLoop::runUntil([this] { return !errand.isUnderWay(); }));
  EXPECT_EQ(heard, "c");
  EXPECT_FALSE(counts->wereSeveral);
}

TEST_F(Latest, CancelledIsNotHeard) {
  errand.ask(hanging('a'));
  errand.cancel();
  counts->isLetGo = true;
  EXPECT_TRUE(EventLoop::runUntil([this] { return !errand.isUnderWay(); }));
  EXPECT_EQ(heard, "");
}

TEST_F(Latest, WorkThatThrowsIsToldWhy) {
  errand.ask(throwing(), noting());
  EXPECT_TRUE(EventLoop::runUntil([this] { return !errand.isUnderWay(); }));
  EXPECT_EQ(heard, "(There is not enough memory)");
}

TEST_F(Latest, AfterOneThatThrewTheNextBegins) {
  errand.ask(throwing(), noting());
  errand.ask(throwing(), noting());
  errand.ask(hanging('b'), noting());
  counts->isLetGo = true;
  EXPECT_TRUE(EventLoop::runUntil([this] { return !errand.isUnderWay(); }));
  EXPECT_EQ(heard, "b") << "of the latest alone something is heard";
}

TEST_F(Latest, OfOneThatThrewAndWasCancelledNothingIsHeard) {
  errand.ask(throwing(), noting());
  errand.cancel();
  EXPECT_TRUE(EventLoop::runUntil([this] { return !errand.isUnderWay(); }));
  EXPECT_EQ(heard, "");
}

TEST_F(Latest, WithoutAThreadItIsTold) {
  const int status = Confinement::run([this] {
    if (!Confinement::failSystemCall(SYS_clone3, EAGAIN)) return 1;
    if (!Confinement::failSystemCall(SYS_clone, EAGAIN)) return 2;
    errand.ask(held('a'), noting());
    if (errand.isUnderWay()) return 3;
    return heard == "(no thread can be had)" ? 0 : 4;
  });
  EXPECT_EQ(status, 0);
}
