// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>

/// Whether the desktop wants less motion, by its settings portal
/// (`org.freedesktop.portal.Settings`, "enable-animations" of "org.gnome.desktop.interface"). A
/// portal that is not running is not started. Nothing waits for it. Interface thread, which has an
/// event loop.
class MotionSetting : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// Asks on this bus, and hears of changes from then on; once.
  void ask(const QDBusConnection& bus);

 signals:
  /// The answer, and each change after it. Where nothing answers, nothing is told.
  void told(bool isReduced);

 private:
  Q_SLOT void hear(const QString& group, const QString& name, const QDBusVariant& value);
  void take(const QVariant& value);
};
