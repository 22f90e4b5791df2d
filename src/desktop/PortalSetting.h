// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>

/// A wish of the desktop's, by its settings portal (`org.freedesktop.portal.Settings`). A portal
/// that is not running is not started. Nothing waits for it. Interface thread, which has an event
/// loop.
class PortalSetting : public QObject {
  Q_OBJECT

 public:
  /// By the names that the portal has for them.
  PortalSetting(QString group, QString name, QObject* parent = nullptr);

  /// Asks on this bus, and hears of changes from then on; once.
  void ask(const QDBusConnection& bus);

 signals:
  /// The answer, and each change after it. Where nothing answers, nothing is told.
  void told(const QVariant& value);

 private:
  Q_SLOT void hear(const QString& group, const QString& name, const QDBusVariant& value);
  void take(const QVariant& value);

  QString _group;
  QString _name;
};
