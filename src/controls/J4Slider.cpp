// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/J4Slider.h"

#include <QMouseEvent>

#include "controls/ClockText.h"

namespace {

constexpr double kFineSeconds = 1.0;
constexpr double kCoarseSeconds = 10.0;

}  // namespace

J4Slider::J4Slider(QWidget* parent) : Slider(parent) {
  setAccessibleName(tr("Position"));
}

QString J4Slider::valueText() const {
  if (_duration <= 0.0) return Slider::valueText();
  return ClockText::of(value() * _duration);
}

double J4Slider::valueOf(double seconds) const {
  return (highest() - lowest()) * seconds / _duration;
}

double J4Slider::fineStep() const {
  return _duration > 0.0 ? valueOf(kFineSeconds) : Slider::fineStep();
}

double J4Slider::coarseStep() const {
  return _duration > 0.0 ? valueOf(kCoarseSeconds) : Slider::coarseStep();
}

void J4Slider::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) setIsSeeking(true);
  Slider::mousePressEvent(event);
}
