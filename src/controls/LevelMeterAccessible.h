// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class LevelMeter;

/// A level meter for assistive software: its level in units, to be read only. It sends no events:
/// nobody wants thirty levels a second read out. Interface thread.
class LevelMeterAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit LevelMeterAccessible(LevelMeter& meter);

  void* interface_cast(QAccessible::InterfaceType type) override;
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QAccessible::State state() const override;

  [[nodiscard]] QVariant currentValue() const override;
  void setCurrentValue(const QVariant& /*value*/) override {}
  [[nodiscard]] QVariant minimumValue() const override;
  [[nodiscard]] QVariant maximumValue() const override;
  [[nodiscard]] QVariant minimumStepSize() const override { return 1.0; }

 private:
  LevelMeter& _meter;
};
