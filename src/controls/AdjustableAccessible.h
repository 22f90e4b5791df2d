// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

#include "controls/Adjustable.h"

/// A dial or slider for assistive software: role, name, value with its range, and actions to raise
/// and lower it by a fine step. Interface thread.
class AdjustableAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  /// `control` is the widget itself.
  AdjustableAccessible(QWidget* widget, Adjustable& control, QAccessible::Role role);

  void* interface_cast(QAccessible::InterfaceType type) override;
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QAccessible::State state() const override;

  [[nodiscard]] QVariant currentValue() const override {
    return _control.adjustableValue() * _control.unit();
  }
  void setCurrentValue(const QVariant& value) override;
  [[nodiscard]] QVariant minimumValue() const override {
    return _control.lowest() * _control.unit();
  }
  [[nodiscard]] QVariant maximumValue() const override {
    return _control.highest() * _control.unit();
  }
  [[nodiscard]] QVariant minimumStepSize() const override {
    return _control.fineStep() * _control.unit();
  }

  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  Adjustable& _control;
};
