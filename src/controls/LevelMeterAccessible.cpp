// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/LevelMeterAccessible.h"

LevelMeterAccessible::LevelMeterAccessible(QWidget& meter, const ReadableLevel& level)
    : QAccessibleWidget(&meter, QAccessible::ProgressBar), _meter(level) {}

void* LevelMeterAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QString LevelMeterAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? QString::number(_meter.level())
                                    : QAccessibleWidget::text(kind);
}

QAccessible::State LevelMeterAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.readOnly = true;
  return state;
}

// Doubles: the bridge to assistive software turns every value into one.
QVariant LevelMeterAccessible::currentValue() const {
  return static_cast<double>(_meter.level());
}
QVariant LevelMeterAccessible::minimumValue() const {
  return static_cast<double>(_meter.minValue());
}
QVariant LevelMeterAccessible::maximumValue() const {
  return static_cast<double>(_meter.maxValue());
}
