// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QEventLoop>
#include <QObject>
#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/ApplicationInterface.h"
#include "desktop/BusLink.h"

/// One window a session: a start hands over to the one that runs, which has the program's name on
/// the bus. Where there is no bus, or none that answers soon, a start has its own window. Interface
/// thread.
class OneWindow : public QObject {
 public:
  /// What somebody wants of the window: to come to the front, and to open these addresses, if any.
  struct Wish {
    QStringList addresses;
    QString token;  ///< the desktop's leave to come to the front; may be empty
  };
  using Served = std::function<void(const Wish& wish)>;

  static constexpr const char* kName = "example.mixdeck.mixdeck";
  static constexpr const char* kPath = "/example/mixdeck/mixdeck";

  /// The link outlives it, and has not begun yet.
  explicit OneWindow(BusLink& link);

  /// Whether another window sees to this wish; else this one is to see to those of others. Waits
  /// for the bus, this long at most. At most once.
  bool isHandedOver(const Wish& wish, std::chrono::milliseconds patience = std::chrono::seconds(1));
  /// From now on `served` is told of the wishes of others, also of those that have come already.
  void serve(Served served);

 private:
  void requestName(const QDBusConnection& bus);
  void handOver(const QDBusConnection& bus);
  void decide(bool isHandedOver);
  void take(const Wish& wish);

  BusLink& _link;
  QObject _object;  ///< the one on the bus
  ApplicationInterface* _interface;
  QEventLoop _waiting;
  std::optional<Wish> _wish;  ///< while it is not decided who sees to it
  bool _isHandedOver = false;
  Served _served;
  std::vector<Wish> _early;
};
