// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/MotionSetting.h"

#include <gmock/gmock.h>

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <memory>
#include <vector>

#include "support/CoreApplication.h"
#include "support/EventLoop.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kSettings = QStringLiteral("org.freedesktop.portal.Settings");
const QString kGroup = QStringLiteral("org.gnome.desktop.interface");
const QString kName = QStringLiteral("enable-animations");

/// A desktop's settings, of which there is one.
class FakePortal : public QDBusVirtualObject {
 public:
  [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    if (message.interface() != kSettings || message.member() != QLatin1String("Read")) return false;
    asked.push_back(message.arguments());
    const QVariant inner = QVariant::fromValue(QDBusVariant(isAnimated));
    return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(inner))));
  }

  QVariant isAnimated = true;
  std::vector<QVariantList> asked;
};

class MotionSettingTest : public testing::Test {
 protected:
  void SetUp() override {
    daemon.start(QStringLiteral("dbus-daemon"),
                 {QStringLiteral("--session"), QStringLiteral("--nofork"),
                  QStringLiteral("--nopidfile"), QStringLiteral("--print-address")});
    ASSERT_TRUE(daemon.waitForReadyRead());
    const QString address = QString::fromUtf8(daemon.readLine()).trimmed();
    desktop = std::make_unique<QDBusConnection>(
        QDBusConnection::connectToBus(address, QStringLiteral("desktop")));
    program = std::make_unique<QDBusConnection>(
        QDBusConnection::connectToBus(address, QStringLiteral("program")));
    ASSERT_TRUE(desktop->isConnected() && program->isConnected());
    QObject::connect(&setting, &MotionSetting::told,
                     [this](bool isReduced) { told.push_back(isReduced); });
  }
  void TearDown() override {
    for (const char* const name : {"desktop", "program"}) {
      QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }
    daemon.kill();
    daemon.waitForFinished();
  }
  void beThere() {
    ASSERT_TRUE(desktop->registerVirtualObject(kPath, &portal));
    ASSERT_TRUE(desktop->registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
  }
  void change(const QString& name, const QVariant& value) const {
    QDBusMessage signal =
        QDBusMessage::createSignal(kPath, kSettings, QStringLiteral("SettingChanged"));
    signal.setArguments({kGroup, name, QVariant::fromValue(QDBusVariant(value))});
    ASSERT_TRUE(desktop->send(signal));
  }
  /// Until so much has been told.
  bool waitFor(std::size_t count) {
    return EventLoop::runUntil([&] { return told.size() >= count; });
  }

  CoreApplication application;
  QProcess daemon;
  FakePortal portal;
  std::unique_ptr<QDBusConnection> desktop;
  std::unique_ptr<QDBusConnection> program;
  MotionSetting setting;
  std::vector<bool> told;
};

TEST_F(MotionSettingTest, AsksAndHearsOfChanges) {
  portal.isAnimated = false;
  beThere();
  setting.ask(*program);
  ASSERT_TRUE(waitFor(1));
  ASSERT_EQ(portal.asked.size(), 1U);
  EXPECT_EQ(portal.asked[0], QVariantList({kGroup, kName}));
  change(QStringLiteral("clock-format"), true);
  change(kName, QStringLiteral("yes"));
  change(kName, true);
  ASSERT_TRUE(waitFor(2));
  EXPECT_THAT(told, ElementsAre(true, false));
}

TEST_F(MotionSettingTest, WithoutAPortalNothingIsTold) {
  setting.ask(*program);
  change(kName, false);  // comes after the answer that there is none
  ASSERT_TRUE(waitFor(1));
  EXPECT_THAT(told, ElementsAre(true));
  EXPECT_THAT(portal.asked, IsEmpty());
}

TEST_F(MotionSettingTest, WhatIsNoYesOrNoIsNoAnswer) {
  portal.isAnimated = 7;
  beThere();
  setting.ask(*program);
  ASSERT_TRUE(EventLoop::runUntil([&] { return !portal.asked.empty(); }));
  change(kName, true);
  ASSERT_TRUE(waitFor(1));
  EXPECT_THAT(told, ElementsAre(false));
}

}  // namespace
