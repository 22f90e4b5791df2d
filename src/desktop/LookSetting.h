// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>

#include "desktop/PortalSetting.h"

/// How large the desktop wants text ("text-scaling-factor" of "org.gnome.desktop.interface"), and
/// whether it wants more contrast ("contrast" of "org.freedesktop.appearance"). Interface thread,
/// which has an event loop.
class LookSetting : public QObject {
  Q_OBJECT

 public:
  explicit LookSetting(QObject* parent = nullptr);

  /// Asks on this bus, and hears of changes from then on; once.
  void ask(const QDBusConnection& bus);

 signals:
  /// The answers, and each change after them. Where nothing answers, nothing is told.
  void textScaled(double scale);
  void contrastRaised(bool isHigh);

 private:
  PortalSetting _text;
  PortalSetting _contrast;
};
