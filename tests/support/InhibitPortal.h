// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <string>
#include <vector>

/// A desktop's portal that keeps awake, and notes what it was asked.
class InhibitPortal : public QDBusVirtualObject {
 public:
  static QString root() { return QStringLiteral("/org/freedesktop/portal/desktop"); }
  static QString service() { return QStringLiteral("org.freedesktop.portal.Desktop"); }

  /// Whether it is there now.
  bool appear(QDBusConnection& bus) {
    return bus.registerVirtualObject(root(), this, QDBusConnection::SubPath) &&
           bus.registerService(service());
  }
  [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
    const std::string what = message.member().toStdString();
    if (what == "Read") return false;  // it knows no settings
    told.push_back(what + " " + message.path().toStdString());
    if (what != "Inhibit") return bus.send(message.createReply());
    asked = message.arguments();
    if (isMute) held.push_back(message);
    return isMute ||
           bus.send(isRefusing ? message.createErrorReply("example.No", {}) : grant(message));
  }
  QDBusMessage grant(const QDBusMessage& question) {
    const QString handle = root() + QStringLiteral("/request/%1").arg(++_count);
    return question.createReply(QVariant::fromValue(QDBusObjectPath(handle)));
  }

  bool isRefusing = false;
  bool isMute = false;
  QVariantList asked;
  std::vector<std::string> told;
  std::vector<QDBusMessage> held;

 private:
  int _count = 0;
};
