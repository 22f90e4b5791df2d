// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <optional>

/// Keeps the machine from sleeping while there is work that must not be broken off, by the
/// desktop's inhibit portal (`org.freedesktop.portal.Inhibit`). The screen may sleep. Nothing waits
/// for it; where there is no portal the machine sleeps when it likes. Interface thread, which has
/// an event loop.
class StayAwake : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// From now on the machine is kept awake by this bus; once.
  void begin(const QDBusConnection& bus);
  /// Whether there is such work.
  void setBusy(bool isBusy);

 private:
  void update();
  void ask();
  void release();

  std::optional<QDBusConnection> _bus;
  bool _isBusy = false;
  bool _isAsked = false;  ///< the portal has not answered yet
  QString _handle;        ///< of what keeps the machine awake; empty while nothing does
};
