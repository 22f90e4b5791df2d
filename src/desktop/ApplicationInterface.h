// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusAbstractAdaptor>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

/// `org.freedesktop.Application`: what a desktop, or a second start of the program, wants of the
/// one that runs. Interface thread.
class ApplicationInterface : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

 public:
  explicit ApplicationInterface(QObject* parent) : QDBusAbstractAdaptor(parent) {}

 public slots:  // NOLINT(readability-redundant-access-specifiers): slots are what the bus may call.
  // NOLINTBEGIN(readability-identifier-naming): the names on the bus.
  void Activate(const QVariantMap& platformData) { emit asked({}, tokenIn(platformData)); }
  void Open(const QStringList& addresses, const QVariantMap& platformData) {
    emit asked(addresses, tokenIn(platformData));
  }
  /// The program's entry has no actions.
  void ActivateAction(const QString& /*name*/, const QVariantList& /*parameter*/,
                      const QVariantMap& platformData) {
    emit asked({}, tokenIn(platformData));
  }
  // NOLINTEND(readability-identifier-naming)

 signals:
  /// To come to the front, and to open these, if any. The token, where there is one, is the
  /// desktop's leave for the first.
  void asked(const QStringList& addresses, const QString& token);

 private:
  static QString tokenIn(const QVariantMap& platformData) {
    const QString token = platformData.value(QStringLiteral("activation-token")).toString();
    return token.isEmpty() ? platformData.value(QStringLiteral("desktop-startup-id")).toString()
                           : token;
  }
};
