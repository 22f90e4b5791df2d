// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <cstdint>

/// What assistive software reads of a meter.
class ReadableLevel {
 public:
  ReadableLevel() = default;
  ReadableLevel(const ReadableLevel&) = delete;
  ReadableLevel& operator=(const ReadableLevel&) = delete;
  virtual ~ReadableLevel() = default;

  [[nodiscard]] virtual std::int64_t level() const = 0;
  [[nodiscard]] virtual std::int64_t minValue() const = 0;
  [[nodiscard]] virtual std::int64_t maxValue() const = 0;
  /// The level that is 0 dB; a unit is a dB.
  [[nodiscard]] virtual std::int64_t zero() const = 0;
};

/// A level meter for assistive software: its level in dB, to be read only. It sends no events:
/// nobody wants thirty levels a second read out. Interface thread.
class LevelMeterAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  /// `level` is of the widget itself.
  LevelMeterAccessible(QWidget& meter, const ReadableLevel& level);

  void* interface_cast(QAccessible::InterfaceType type) override;
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QAccessible::State state() const override;

  [[nodiscard]] QVariant currentValue() const override;
  void setCurrentValue(const QVariant& /*value*/) override {}
  [[nodiscard]] QVariant minimumValue() const override;
  [[nodiscard]] QVariant maximumValue() const override;
  [[nodiscard]] QVariant minimumStepSize() const override { return 1.0; }

 private:
  [[nodiscard]] double decibels(std::int64_t level) const;

  const ReadableLevel& _meter;
};
