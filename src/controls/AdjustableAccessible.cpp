// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/AdjustableAccessible.h"

#include <QWidget>

AdjustableAccessible::AdjustableAccessible(QWidget* widget, Adjustable& control,
                                           QAccessible::Role role)
    : QAccessibleWidget(widget, role), _control(control) {}

void* AdjustableAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

QString AdjustableAccessible::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? _control.valueText() : QAccessibleWidget::text(kind);
}

QAccessible::State AdjustableAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.disabled = !_control.isAdjustable();
  return state;
}

void AdjustableAccessible::setCurrentValue(const QVariant& value) {
  bool isNumber = false;
  const double number = value.toDouble(&isNumber);
  if (isNumber && number == number && _control.isAdjustable()) {
    _control.adjust(number / _control.unit(), AdjustCause::Assistive);
  }
}

QStringList AdjustableAccessible::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  if (_control.isAdjustable()) names << increaseAction() << decreaseAction();
  return names;
}

void AdjustableAccessible::doAction(const QString& name) {
  const bool isUp = name == increaseAction();
  if (!isUp && name != decreaseAction()) return QAccessibleWidget::doAction(name);
  const double step = isUp ? _control.fineStep() : -_control.fineStep();
  setCurrentValue((_control.stepOrigin() + step) * _control.unit());
}
