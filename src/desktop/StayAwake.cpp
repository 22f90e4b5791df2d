// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/StayAwake.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>
#include <utility>

#include "desktop/Portal.h"

namespace {

constexpr QLatin1String kInhibit("org.freedesktop.portal.Inhibit");
constexpr QLatin1String kRequest("org.freedesktop.portal.Request");
constexpr quint32 kSuspend = 4;  // neither logging out, nor another user, nor the idle screen

}  // namespace

void StayAwake::begin(const QDBusConnection& bus) {
  _bus.emplace(bus);
  update();
}

void StayAwake::setBusy(bool isBusy) {
  _isBusy = isBusy;
  update();
}

// One thing at a time: the answer to what was asked comes first.
void StayAwake::update() {
  if (!_bus || _isAsked) return;
  if (_isBusy && _handle.isEmpty()) ask();
  if (!_isBusy && !_handle.isEmpty()) release();
}

void StayAwake::ask() {
  _isAsked = true;
  QDBusMessage question = QDBusMessage::createMethodCall(portal::kService, portal::kPath, kInhibit,
                                                         QStringLiteral("Inhibit"));
  const QVariantMap options{
      {QStringLiteral("reason"), tr("Recordings are being exported or copied")}};
  question.setArguments({QString(), kSuspend, options});
  auto* const watcher = new QDBusPendingCallWatcher(_bus->asyncCall(question), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
    watcher->deleteLater();
    _isAsked = false;
    // Where nobody grants it, it is asked for again with the next work.
    if (!reply.isValid()) return;
    _handle = reply.value().path();
    update();
  });
}

void StayAwake::release() {
  _bus->send(QDBusMessage::createMethodCall(portal::kService, std::exchange(_handle, {}), kRequest,
                                            QStringLiteral("Close")));
}
