// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/StayAwake.h"

#include <gmock/gmock.h>

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include "support/CoreApplication.h"
#include "support/EventLoop.h"
#include "support/InhibitPortal.h"
#include "support/PrivateBus.h"

namespace {

using testing::ElementsAre;

class StayAwakeTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(portal.appear(*bus.desktop)); }
  bool waitFor(std::size_t count) {
    return EventLoop::runUntil([&] { return portal.told.size() >= count; });
  }
  /// Until what was sent before has been heard.
  void settle() const {
    bool isAnswered = false;
    QDBusMessage ping = QDBusMessage::createMethodCall(
        InhibitPortal::service(), InhibitPortal::root() + QStringLiteral("/request/0"),
        QStringLiteral("example.Ping"), QStringLiteral("Ping"));
    QDBusPendingCallWatcher watcher(bus.program().asyncCall(ping));
    QObject::connect(&watcher, &QDBusPendingCallWatcher::finished, [&] { isAnswered = true; });
    ASSERT_TRUE(EventLoop::runUntil([&] { return isAnswered; }));
  }

  static constexpr const char* kInhibit = "Inhibit /org/freedesktop/portal/desktop";
  static constexpr const char* kClose = "Close /org/freedesktop/portal/desktop/request/1";
  static constexpr const char* kPing = "Ping /org/freedesktop/portal/desktop/request/0";
  CoreApplication application;
  PrivateBus bus;
  InhibitPortal portal;
  StayAwake awake;
};

TEST_F(StayAwakeTest, WorkKeepsTheMachineAwakeAndTheEndOfItNoLonger) {
  awake.begin(bus.program());
  awake.setBusy(true);
  ASSERT_TRUE(waitFor(1));
  settle();
  awake.setBusy(false);
  ASSERT_TRUE(waitFor(3));
  EXPECT_THAT(portal.told, ElementsAre(kInhibit, kPing, kClose));
}

TEST_F(StayAwakeTest, OnlySleepIsKeptAwayNotTheScreens) {
  awake.begin(bus.program());
  awake.setBusy(true);
  ASSERT_TRUE(waitFor(1));
  ASSERT_EQ(portal.asked.size(), 3);
  EXPECT_EQ(portal.asked[0].toString(), "");
  EXPECT_EQ(portal.asked[1].toUInt(), 4U);
}

TEST_F(StayAwakeTest, MoreWorkAsksOnce) {
  awake.begin(bus.program());
  for (int i = 0; i < 3; ++i) awake.setBusy(true);
  ASSERT_TRUE(waitFor(1));
  settle();
  awake.setBusy(true);
  settle();
  EXPECT_THAT(portal.told, ElementsAre(kInhibit, kPing, kPing));
}

TEST_F(StayAwakeTest, WithoutWorkNothingIsAsked) {
  awake.begin(bus.program());
  awake.setBusy(false);
  settle();
  EXPECT_THAT(portal.told, ElementsAre(kPing));
}

TEST_F(StayAwakeTest, WorkBeforeThereIsABusCounts) {
  awake.setBusy(true);
  awake.begin(bus.program());
  EXPECT_TRUE(waitFor(1));
}

TEST_F(StayAwakeTest, WorkThatEndsBeforeTheAnswerDoesNotStay) {
  portal.isMute = true;
  awake.begin(bus.program());
  awake.setBusy(true);
  ASSERT_TRUE(waitFor(1));
  awake.setBusy(false);
  ASSERT_TRUE(bus.desktop->send(portal.grant(portal.held.front())));
  ASSERT_TRUE(waitFor(2));
  EXPECT_THAT(portal.told, ElementsAre(kInhibit, kClose));
}

TEST_F(StayAwakeTest, PortalThatRefusesIsAskedAgainWithTheNextWork) {
  portal.isRefusing = true;
  awake.begin(bus.program());
  awake.setBusy(true);
  ASSERT_TRUE(waitFor(1));
  settle();
  portal.isRefusing = false;
  awake.setBusy(true);
  ASSERT_TRUE(waitFor(3));
  EXPECT_THAT(portal.told, ElementsAre(kInhibit, kPing, kInhibit));
}

}  // namespace
