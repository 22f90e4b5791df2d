// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <functional>
#include <optional>

#include "base/Errand.h"

/// The way to the session bus. Nobody waits for it: it is looked for on a thread of its own, and
/// where there is none nothing happens. Interface thread, which has an event loop.
class BusLink : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  /// Begins to look for the bus, where the environment names one; whether that is under way.
  bool begin();
  /// The bus, once it is connected.
  [[nodiscard]] const std::optional<QDBusConnection>& bus() const { return _bus; }
  /// Wants a name on the bus and tells `done`, from the event loop, whether it is ours now. Not
  /// where the bus does not answer, nor once `context` has gone.
  static void requestName(const QDBusConnection& bus, const QString& name, QObject* context,
                          const std::function<void(bool isOurs)>& done);

 signals:
  void connected(const QDBusConnection& bus);
  /// Nobody answers there.
  void absent();

 private:
  void show(bool isThere);

  Errand _errand;
  std::optional<QDBusConnection> _bus;
};
