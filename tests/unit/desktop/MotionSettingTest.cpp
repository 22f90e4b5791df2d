// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/MotionSetting.h"

#include <gmock/gmock.h>

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <vector>

#include "SessionBus.h"
#include "desktop/LookSetting.h"
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
    QObject::connect(&setting, &MotionSetting::told,
                     [this](bool isReduced) { told.push_back(isReduced); });
  }
  void beThere() {
    ASSERT_TRUE(bus.desktop().registerVirtualObject(kPath, &portal));
    ASSERT_TRUE(bus.desktop().registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
  }
  void change(const QString& name, const QVariant& value, const QString& group = kGroup) const {
    QDBusMessage signal =
        QDBusMessage::createSignal(kPath, kSettings, QStringLiteral("SettingChanged"));
    signal.setArguments({group, name, QVariant::fromValue(QDBusVariant(value))});
    ASSERT_TRUE(bus.desktop().send(signal));
  }
  /// Until so much has been told.
  bool waitFor(std::size_t count) {
    return EventLoop::runUntil([&] { return told.size() >= count; });
  }

  CoreApplication application;
  FakePortal portal;
  const SessionBus bus;
  MotionSetting setting;
  std::vector<bool> told;
};

TEST_F(MotionSettingTest, AsksAndHearsOfChanges) {
  portal.isAnimated = false;
  beThere();
  setting.ask(bus.program());
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
  setting.ask(bus.program());
  change(kName, false);  // comes after the answer that there is none
  ASSERT_TRUE(waitFor(1));
  EXPECT_THAT(told, ElementsAre(true));
  EXPECT_THAT(portal.asked, IsEmpty());
}

TEST_F(MotionSettingTest, WhatIsNoYesOrNoIsNoAnswer) {
  portal.isAnimated = 7;
  beThere();
  setting.ask(bus.program());
  ASSERT_TRUE(EventLoop::runUntil([&] { return !portal.asked.empty(); }));
  change(kName, true);
  ASSERT_TRUE(waitFor(1));
  EXPECT_THAT(told, ElementsAre(false));
}

TEST_F(MotionSettingTest, SizeOfTextAndContrastAreToldByTheirOwnNames) {
  const QString text = QStringLiteral("text-scaling-factor");
  const QString appearance = QStringLiteral("org.freedesktop.appearance");
  LookSetting look;
  std::vector<double> scales;
  std::vector<bool> contrasts;
  QObject::connect(&look, &LookSetting::textScaled, [&](double scale) { scales.push_back(scale); });
  QObject::connect(&look, &LookSetting::contrastRaised,
                   [&](bool isHigh) { contrasts.push_back(isHigh); });
  beThere();
  look.ask(bus.program());
  ASSERT_TRUE(EventLoop::runUntil([&] { return portal.asked.size() == 2; }));
  EXPECT_EQ(portal.asked[0], QVariantList({kGroup, text}));
  EXPECT_EQ(portal.asked[1], QVariantList({appearance, QStringLiteral("contrast")}));
  change(text, QStringLiteral("large"));
  change(text, 2.0);
  change(QStringLiteral("contrast"), 1U);  // of another group
  change(QStringLiteral("contrast"), 1U, appearance);
  change(QStringLiteral("contrast"), 0U, appearance);
  ASSERT_TRUE(EventLoop::runUntil([&] { return contrasts.size() == 2; }));
  EXPECT_THAT(scales, ElementsAre(2.0)) << "what is no number is no answer";
  EXPECT_THAT(contrasts, ElementsAre(true, false));
}

}  // namespace
