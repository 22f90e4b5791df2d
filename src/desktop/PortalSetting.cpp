// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/PortalSetting.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <utility>

#include "desktop/Portal.h"

namespace {

constexpr QLatin1String kSettings("org.freedesktop.portal.Settings");

// What is read comes in an envelope within an envelope.
QVariant opened(QVariant value) {
  while (value.userType() == qMetaTypeId<QDBusVariant>()) {
    value = value.value<QDBusVariant>().variant();
  }
  return value;
}

}  // namespace

PortalSetting::PortalSetting(QString group, QString name, QObject* parent)
    : QObject(parent), _group(std::move(group)), _name(std::move(name)) {}

void PortalSetting::ask(const QDBusConnection& bus) {
  // Else the first connection of a program finds no slot with such an argument.
  qDBusRegisterMetaType<QDBusVariant>();
  // From anyone: to know the portal by name the library would wait for the bus.
  QDBusConnection(bus).connect(QString(), portal::kPath, kSettings,
                               QStringLiteral("SettingChanged"), this,
                               SLOT(hear(QString, QString, QDBusVariant)));
  QDBusMessage question = QDBusMessage::createMethodCall(portal::kService, portal::kPath, kSettings,
                                                         QStringLiteral("Read"));
  question.setArguments({_group, _name});
  question.setAutoStartService(false);
  auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    watcher->deleteLater();
    if (reply.isValid()) take(reply.value().variant());
  });
}

void PortalSetting::hear(const QString& group, const QString& name, const QDBusVariant& value) {
  if (group == _group && name == _name) take(value.variant());
}

void PortalSetting::take(const QVariant& value) {
  emit told(opened(value));
}
