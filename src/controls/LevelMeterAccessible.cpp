// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/LevelMeterAccessible.h"

#include <QCoreApplication>

LevelMeterAccessible::LevelMeterAccessible(QWidget& meter, const ReadableLevel& level)
    : QAccessibleWidget(&meter, QAccessible::ProgressBar), _meter(level) {}

void* LevelMeterAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QString LevelMeterAccessible::text(QAccessible::Text kind) const {
  if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
  return QCoreApplication::translate("LevelMeter", "%1 dB").arg(decibels(_meter.level()));
}

double LevelMeterAccessible::decibels(std::int64_t level) const {
  return static_cast<double>(level - _meter.zero());
}

QAccessible::State LevelMeterAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.readOnly = true;
  return state;
}

// Doubles: the bridge to assistive software turns every value into one.
QVariant LevelMeterAccessible::currentValue() const {
  return decibels(_meter.level());
}
QVariant LevelMeterAccessible::minimumValue() const {
  return decibels(_meter.minValue());
}
QVariant LevelMeterAccessible::maximumValue() const {
  return decibels(_meter.maxValue());
}
