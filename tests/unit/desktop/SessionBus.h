// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QProcess>
#include <memory>

/// A session bus of its own, with a desktop and a program on it.
class SessionBus {
 public:
  SessionBus() {
    _daemon.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--session"), QStringLiteral("--nofork"),
                   QStringLiteral("--nopidfile"), QStringLiteral("--print-address")});
    EXPECT_TRUE(_daemon.waitForReadyRead());
    const QString address = QString::fromUtf8(_daemon.readLine()).trimmed();
    _desktop = std::make_unique<QDBusConnection>(
        QDBusConnection::connectToBus(address, QStringLiteral("desktop")));
    _program = std::make_unique<QDBusConnection>(
        QDBusConnection::connectToBus(address, QStringLiteral("program")));
    EXPECT_TRUE(_desktop->isConnected() && _program->isConnected());
  }
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;
  ~SessionBus() {
    for (const char* const name : {"desktop", "program"}) {
      QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }
    _daemon.kill();
    _daemon.waitForFinished();
  }

  [[nodiscard]] QDBusConnection& desktop() const { return *_desktop; }
  [[nodiscard]] QDBusConnection& program() const { return *_program; }

 private:
  QProcess _daemon;
  std::unique_ptr<QDBusConnection> _desktop;
  std::unique_ptr<QDBusConnection> _program;
};
