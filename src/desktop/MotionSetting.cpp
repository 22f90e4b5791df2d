// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "desktop/MotionSetting.h"

#include <QVariant>

MotionSetting::MotionSetting(QObject* parent)
    : QObject(parent),
      _setting(QStringLiteral("org.gnome.desktop.interface"), QStringLiteral("enable-animations")) {
  connect(&_setting, &PortalSetting::told, this, [this](const QVariant& isAnimated) {
    if (isAnimated.userType() == QMetaType::Bool) emit told(!isAnimated.toBool());
  });
}
