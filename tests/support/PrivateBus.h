// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <memory>

/// A session bus of one's own, with somebody else on it, the desktop. There is an application.
class PrivateBus {
 public:
  PrivateBus() {
    _daemon.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--session"), QStringLiteral("--nofork"),
                   QStringLiteral("--nopidfile"), QStringLiteral("--print-address")});
    EXPECT_TRUE(_daemon.waitForReadyRead());
    address = QString::fromUtf8(_daemon.readLine()).trimmed();
    desktop = std::make_unique<QDBusConnection>(
        QDBusConnection::connectToBus(address, QStringLiteral("desktop")));
    EXPECT_TRUE(desktop->isConnected());
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  ~PrivateBus() {
    for (const char* const name : {"desktop", "program", "mixdeck"}) {
      QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }
    _daemon.kill();
    _daemon.waitForFinished();
  }

  /// The program's way to it.
  [[nodiscard]] QDBusConnection program() const {
    return QDBusConnection::connectToBus(address, QStringLiteral("program"));
  }

  QString address;
  std::unique_ptr<QDBusConnection> desktop;

 private:
  QProcess _daemon;
};
