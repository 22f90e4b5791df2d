// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/MprisService.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QStringList>

#include "desktop/BusLink.h"

namespace {

constexpr const char* kPlayerPath = "/org/mpris/MediaPlayer2";
constexpr const char* kName = "org.mpris.MediaPlayer2.mixdeck";
constexpr const char* kInterface = "org.mpris.MediaPlayer2.Player";

}  // namespace

MprisService::MprisService(RemotePlayer& player, QObject* parent)
    : QObject(parent),
      _player(player),
      _root(new MprisRoot(&_object)),
      _interface(new MprisPlayer(player, &_object)) {
  connect(_root, &MprisRoot::raiseRequested, this, &MprisService::raiseRequested);
  connect(_root, &MprisRoot::quitRequested, this, &MprisService::quitRequested);
}

void MprisService::appear(const QDBusConnection& bus) {
  _bus.emplace(bus);
  _interface->answerOver(bus);
  if (!_bus->registerObject(QLatin1String(kPlayerPath), &_object)) return;
  _told = _interface->told();
  connect(&_player, &RemotePlayer::changed, this, &MprisService::tellChanges);
  connect(&_player, &RemotePlayer::jumped, this, &MprisService::tellJump);
  const QString name = QLatin1String(kName);
  // Where another window has it, a name beside it, which nobody else can have.
  BusLink::requestName(*_bus, name, this, [this, name](bool isOurs) {
    const QString own =
        QStringLiteral("%1.instance%2").arg(name).arg(QCoreApplication::applicationPid());
    if (!isOurs) BusLink::requestName(*_bus, own, this, [](bool /*any*/) {});
  });
}

void MprisService::tellChanges() {
  const QVariantMap now = _interface->told();
  QVariantMap changed;
  for (auto it = now.cbegin(); it != now.cend(); ++it) {
    if (_told.value(it.key()) != it.value()) changed.insert(it.key(), it.value());
  }
  _told = now;
  if (changed.isEmpty()) return;
  QDBusMessage signal = QDBusMessage::createSignal(
      QLatin1String(kPlayerPath), QStringLiteral("org.freedesktop.DBus.Properties"),
      QStringLiteral("PropertiesChanged"));
  signal.setArguments({QLatin1String(kInterface), changed, QStringList()});
  _bus->send(signal);
}

void MprisService::tellJump() {
  emit _interface->Seeked(_player.position());
}
