// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/OneWindow.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QTimer>
#include <QVariantMap>
#include <utility>

namespace {

QDBusMessage request(const OneWindow::Wish& wish) {
  QVariantMap platformData;
  for (const char* const name : {"activation-token", "desktop-startup-id"}) {
    if (!wish.token.isEmpty()) platformData[QLatin1String(name)] = wish.token;
  }
  const bool opens = !wish.addresses.isEmpty();
  QDBusMessage message = QDBusMessage::createMethodCall(
      QLatin1String(OneWindow::kName), QLatin1String(OneWindow::kPath),
      QStringLiteral("org.freedesktop.Application"),
      opens ? QStringLiteral("Open") : QStringLiteral("Activate"));
  message.setArguments(opens ? QVariantList{wish.addresses, platformData}
                             : QVariantList{platformData});
  return message;
}

}  // namespace

OneWindow::OneWindow(BusLink& link) : _link(link), _interface(new ApplicationInterface(&_object)) {
  connect(_interface, &ApplicationInterface::asked, this,
          [this](const QStringList& addresses, const QString& token) {
            take({addresses, token});
          });
}

bool OneWindow::isHandedOver(const Wish& wish, std::chrono::milliseconds patience) {
  connect(&_link, &BusLink::connected, this, &OneWindow::requestName);
  connect(&_link, &BusLink::absent, this, [this] { decide(false); });
  if (!_link.begin()) return false;
  _wish = wish;
  QTimer::singleShot(patience, this, [this] { decide(false); });
  _waiting.exec();
  return _isHandedOver;
}

// The object first: whoever sees the name may ask at once.
void OneWindow::requestName(const QDBusConnection& bus) {
  QDBusConnection(bus).registerObject(QLatin1String(kPath), &_object);
  BusLink::requestName(bus, QLatin1String(kName), this, [this, bus](bool isOurs) {
    if (isOurs) return decide(false);
    handOver(bus);
  });
}

// Too late where there is a window by now.
void OneWindow::handOver(const QDBusConnection& bus) {
  if (!_wish) return;
  auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(request(*_wish)), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    const QDBusPendingReply<> reply = *watcher;
    watcher->deleteLater();
    decide(reply.isValid());
  });
}

void OneWindow::decide(bool isHandedOver) {
  if (!std::exchange(_wish, std::nullopt)) return;
  _isHandedOver = isHandedOver;
  _waiting.quit();
}

void OneWindow::take(const Wish& wish) {
  if (_served) return _served(wish);
  _early.push_back(wish);
}

void OneWindow::serve(Served served) {
  _served = std::move(served);
  for (const Wish& wish : std::exchange(_early, {})) _served(wish);
}
