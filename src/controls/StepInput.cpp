// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/StepInput.h"

#include <optional>

namespace {

std::optional<double> target(const Adjustable& control, int key, bool isCoarse) {
  const double arrow = isCoarse ? control.coarseStep() : control.fineStep();
  switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Right:
      return control.stepOrigin() + arrow;
    case Qt::Key_Down:
    case Qt::Key_Left:
      return control.stepOrigin() - arrow;
    case Qt::Key_PageUp:
      return control.stepOrigin() + control.coarseStep();
    case Qt::Key_PageDown:
      return control.stepOrigin() - control.coarseStep();
    case Qt::Key_Home:
      return control.lowest();
    case Qt::Key_End:
      return control.highest();
    default:
      return std::nullopt;
  }
}

}  // namespace

bool StepInput::keyPressed(Adjustable& control, const QKeyEvent& event) {
  const Qt::KeyboardModifiers shortcuts = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if (!control.isAdjustable() || (event.modifiers() & shortcuts) != 0) return false;
  const bool isCoarse = event.modifiers().testFlag(Qt::ShiftModifier);
  const auto value = target(control, event.key(), isCoarse);
  if (value) control.adjust(*value, AdjustCause::Key);
  return value.has_value();
}

bool StepInput::wheelTurned(Adjustable& control, const QWheelEvent& event) {
  if (!control.isAdjustable() || event.angleDelta().y() == 0) return false;
  _rest += event.angleDelta().y();
  const int notches = _rest / QWheelEvent::DefaultDeltasPerStep;
  _rest %= QWheelEvent::DefaultDeltasPerStep;
  if (notches == 0) return true;
  const bool isCoarse = (event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) != 0;
  const double step = isCoarse ? control.coarseStep() : control.fineStep();
  control.adjust(control.stepOrigin() + notches * step, AdjustCause::Wheel);
  return true;
}
