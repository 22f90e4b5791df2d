// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>

#include "desktop/PortalSetting.h"

/// Whether the desktop wants less motion ("enable-animations" of "org.gnome.desktop.interface").
/// Interface thread, which has an event loop.
class MotionSetting : public QObject {
  Q_OBJECT

 public:
  explicit MotionSetting(QObject* parent = nullptr);

  /// Asks on this bus, and hears of changes from then on; once.
  void ask(const QDBusConnection& bus) { _setting.ask(bus); }

 signals:
  /// The answer, and each change after it. Where nothing answers, nothing is told.
  void told(bool isReduced);

 private:
  PortalSetting _setting;
};
