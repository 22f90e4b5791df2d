// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What moved a control. An owner that acts only when a movement is over asks `isFinal`.
enum class AdjustCause {
  Press,      ///< the left button went down on the control
  Drag,       ///< the pointer moved with the button down
  Release,    ///< the button came up
  Key,        ///< an arrow, Page Up, Page Down, Home or End
  Wheel,      ///< a notch of the wheel
  Assistive,  ///< assistive software set the value
};

/// Whether no further event belongs to the same movement.
constexpr bool isFinal(AdjustCause cause) {
  return cause != AdjustCause::Press && cause != AdjustCause::Drag;
}

/// A control with a value, as keyboard, wheel and assistive software see it. Interface thread.
class Adjustable {
 public:
  Adjustable() = default;
  Adjustable(const Adjustable&) = delete;
  Adjustable& operator=(const Adjustable&) = delete;
  virtual ~Adjustable() = default;

  /// False while the control refuses to be moved.
  [[nodiscard]] virtual bool isAdjustable() const = 0;
  [[nodiscard]] virtual double adjustableValue() const = 0;
  [[nodiscard]] virtual double lowest() const = 0;
  [[nodiscard]] virtual double highest() const = 0;
  /// One arrow key or one notch of the wheel.
  [[nodiscard]] virtual double fineStep() const = 0;
  /// Page Up or Page Down, an arrow with Shift, or a notch with Shift or Control held.
  [[nodiscard]] virtual double coarseStep() const = 0;
  /// Where a step starts: the value as the user reads it.
  [[nodiscard]] virtual double stepOrigin() const { return adjustableValue(); }
  /// What one unit of the value is to assistive software, which is given a bare number: the unit
  /// that people know it by.
  [[nodiscard]] virtual double unit() const { return 1.0; }
  /// The value with its unit, translated.
  [[nodiscard]] virtual QString valueText() const = 0;

  /// Moves the control as the user would; a value out of range is clamped. Reports `cause`.
  virtual void adjust(double value, AdjustCause cause) = 0;
};
