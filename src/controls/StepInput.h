// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QKeyEvent>
#include <QWheelEvent>

#include "controls/Adjustable.h"

/// Keys and wheel of an adjustable control. Up and Right and the wheel away from the user raise the
/// value. Everything else, keys with Control, Alt or Meta included, is left to the window.
/// Interface thread.
class StepInput {
 public:
  /// False: the key is not for this control, or the control cannot be moved.
  static bool keyPressed(Adjustable& control, const QKeyEvent& event);

  /// Turns of less than a notch add up until they make one. False as above.
  bool wheelTurned(Adjustable& control, const QWheelEvent& event);

 private:
  int _rest = 0;  ///< eighths of a degree, less than a notch
};
