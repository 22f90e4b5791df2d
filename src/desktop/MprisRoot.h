// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QString>
#include <QStringList>

#include "base/Version.h"

/// `org.mpris.MediaPlayer2`: what the program is. Interface thread.
class MprisRoot : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
  Q_PROPERTY(bool CanQuit READ canQuit CONSTANT)
  Q_PROPERTY(bool CanRaise READ canRaise CONSTANT)
  Q_PROPERTY(bool HasTrackList READ hasTrackList CONSTANT)
  Q_PROPERTY(QString Identity READ identity CONSTANT)
  Q_PROPERTY(QString DesktopEntry READ desktopEntry CONSTANT)
  Q_PROPERTY(QStringList SupportedUriSchemes READ supportedUriSchemes CONSTANT)
  Q_PROPERTY(QStringList SupportedMimeTypes READ supportedMimeTypes CONSTANT)

 public:
  explicit MprisRoot(QObject* parent) : QDBusAbstractAdaptor(parent) {}

  [[nodiscard]] static bool canQuit() { return true; }
  [[nodiscard]] static bool canRaise() { return true; }
  [[nodiscard]] static bool hasTrackList() { return false; }
  [[nodiscard]] static QString identity() { return QLatin1String(kProduct); }
  /// The desktop entry without its end.
  [[nodiscard]] static QString desktopEntry() { return QStringLiteral("example.mixdeck.mixdeck"); }
  [[nodiscard]] static QStringList supportedUriSchemes() { return {QStringLiteral("file")}; }
  [[nodiscard]] static QStringList supportedMimeTypes();

 public slots:  // NOLINT(readability-redundant-access-specifiers): slots are what the bus may call.
  // NOLINTBEGIN(readability-identifier-naming): the names on the bus.
  void Raise() { emit raiseRequested(); }
  void Quit() { emit quitRequested(); }
  // NOLINTEND(readability-identifier-naming)

 signals:
  void raiseRequested();
  void quitRequested();
};
