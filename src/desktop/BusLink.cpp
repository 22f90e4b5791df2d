// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/BusLink.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <string>

namespace {

const QString& connectionName() {
  static const QString kName = QStringLiteral("mixdeck");
  return kName;
}

}  // namespace

bool BusLink::begin() {
  if (_errand.isUnderWay()) return true;
  const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
  // Without an address the library would start a bus of its own.
  const auto work = [this, address] {
    const bool isThere = QDBusConnection::connectToBus(address, connectionName()).isConnected();
    return [this, isThere] { show(isThere); };
  };
  return !address.isEmpty() &&
         _errand.begin(work, [this](const std::string& /*why*/) { show(false); });
}

void BusLink::show(bool isThere) {
  if (!isThere) return void(emit absent());
  emit connected(_bus.emplace(connectionName()));
}

void BusLink::requestName(const QDBusConnection& bus, const QString& name, QObject* context,
                          const std::function<void(bool isOurs)>& done) {
  constexpr quint32 kDoNotQueue = 4;
  constexpr quint32 kOwner = 1;
  QDBusMessage request = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
  request.setArguments({name, kDoNotQueue});
  auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(request), context);
  connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, done] {
    const QDBusPendingReply<quint32> reply = *watcher;
    watcher->deleteLater();
    if (reply.isValid()) done(reply.value() == kOwner);
  });
}
