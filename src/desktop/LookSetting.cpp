// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/LookSetting.h"

#include <QVariant>

LookSetting::LookSetting(QObject* parent)
    : QObject(parent),
      _text(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("text-scaling-factor")),
      _contrast(QStringLiteral("org.freedesktop.appearance"), QStringLiteral("contrast")) {
  connect(&_text, &PortalSetting::told, this, [this](const QVariant& scale) {
    if (scale.userType() == QMetaType::Double) emit textScaled(scale.toDouble());
  });
  connect(&_contrast, &PortalSetting::told, this, [this](const QVariant& wish) {
    if (wish.userType() == QMetaType::UInt) emit contrastRaised(wish.toUInt() == 1);
  });
}

void LookSetting::ask(const QDBusConnection& bus) {
  _text.ask(bus);
  _contrast.ask(bus);
}
