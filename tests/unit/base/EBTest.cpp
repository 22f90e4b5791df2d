// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/EB.h"

#include <gmock/gmock.h>

#include <thread>

#include "support/LogLines.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Writes down what it is told, and leaves the centre with the test.
struct Listener {
  explicit Listener(std::vector<std::string>& toldTo) : told(toldTo) {}
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() { NotificationCenter::defaultCenter().removeObserver(this); }

  void notify(const Notification& event) {
    told.push_back(event.name);
    object = event.object;
    thread = std::this_thread::get_id();
  }
  void notifySecond(const Notification& event) { told.push_back("second " + event.name); }

  std::vector<std::string>& told;
  std::any object;
  std::thread::id thread;
};

class EBTest : public testing::Test {
 protected:
  void SetUp() override { EB::initData(); }

  LogLines log;
  std::vector<std::string> told;
};

TEST_F(EBTest, FiringWithoutSubscribersOnlyLogs) {
  EB::FIRE("EB_NOBODY");
  EXPECT_THAT(log.get(), ElementsAre(">>>>>EVENT BUS EB_NOBODY<<<<<"));
}

TEST_F(EBTest, TellsTheSubscriberOfThatNameOnly) {
  Listener listener(told);
  EB::SUBSCRIBE(&listener, &Listener::notify, EB::kPlayFinish);
  EB::FIRE(EB::kReloadFileList);
  EXPECT_THAT(told, IsEmpty());
  EB::FIRE(EB::kPlayFinish);
  EXPECT_THAT(told, ElementsAre("EB_PLAY_FINISH"));
  EXPECT_FALSE(listener.object.has_value());
}

TEST_F(EBTest, TellsInTheOrderOfRegistration) {
  Listener listener(told);
  EB::SUBSCRIBE(&listener, &Listener::notifySecond, "EB_X");
  EB::SUBSCRIBE(&listener, &Listener::notify, "EB_X");
  EB::FIRE("EB_X");
  EXPECT_THAT(told, ElementsAre("second EB_X", "EB_X"));
}

TEST_F(EBTest, CarriesThePayload) {
  Listener listener(told);
  EB::SUBSCRIBE(&listener, &Listener::notify, "EB_X");
  EB::FIRE("EB_X", 42);
  EXPECT_EQ(std::any_cast<int>(listener.object), 42);
  EXPECT_THAT(log.get(), ElementsAre(">>>>>EVENT BUS EB_X<<<<<"));
}

TEST_F(EBTest, DeliversOnTheFiringThreadBeforeItReturns) {
  Listener listener(told);
  EB::SUBSCRIBE(&listener, &Listener::notify, "EB_X");
  std::thread::id firing;
  std::thread([&] {
    firing = std::this_thread::get_id();
    EB::FIRE("EB_X");
    EXPECT_THAT(told, ElementsAre("EB_X"));
  }).join();
  EXPECT_EQ(listener.thread, firing);
}

TEST_F(EBTest, IsOneObject) {
  NotificationCenter* const center = EB::center();
  EB* const first = EB::init();
  EB::initData();
  EXPECT_EQ(EB::center(), center);
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(EB::init(), first);
}

TEST_F(EBTest, ASubscriberThatLeftIsToldNothing) {
  {
    Listener listener(told);
    EB::SUBSCRIBE(&listener, &Listener::notify, "EB_X");
  }
  EB::FIRE("EB_X");
  EXPECT_THAT(told, IsEmpty());
}

TEST_F(EBTest, AHandlerMaySubscribeAndLeaveWhileItIsTold) {
  NotificationCenter center;
  int calls = 0;
  center.addObserver(
      &calls,
      [&](const Notification&) {
        ++calls;
        center.removeObserver(&calls);
        center.addObserver(
            &center, [&](const Notification&) { calls += 10; }, "X");
      },
      "X");
  center.post({"X", {}});
  EXPECT_EQ(calls, 1);
  center.post({"X", {}});
  EXPECT_EQ(calls, 11);
}

TEST_F(EBTest, WhoIsRemovedByAnotherHandlerIsNotToldAnyMore) {
  NotificationCenter center;
  int calls = 0;
  center.addObserver(
      &center, [&](const Notification&) { center.removeObserver(&calls); }, "X");
  center.addObserver(
      &calls, [&](const Notification&) { ++calls; }, "X");
  center.post({"X", {}});
  EXPECT_EQ(calls, 0);
}

}  // namespace
