// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>
#include <optional>

#include "desktop/MprisPlayer.h"
#include "desktop/MprisRoot.h"
#include "desktop/RemotePlayer.h"

/// A player on the session bus, by the interfaces of `org.mpris.MediaPlayer2`: media keys and
/// desktops find it there. It answers and tells, and never waits for the bus. Interface thread.
class MprisService : public QObject {
  Q_OBJECT

 public:
  /// The player outlives it.
  explicit MprisService(RemotePlayer& player, QObject* parent = nullptr);

  /// Appears on this bus, as `org.mpris.MediaPlayer2.mixdeck`, or with `.instance` and the process
  /// number behind that where another one has the name; once.
  void appear(const QDBusConnection& bus);

 signals:
  void raiseRequested();
  void quitRequested();

 private:
  void tellChanges();
  void tellJump();

  RemotePlayer& _player;
  QObject _object;  ///< the one on the bus
  MprisRoot* _root;
  MprisPlayer* _interface;
  std::optional<QDBusConnection> _bus;
  QVariantMap _told;
};
