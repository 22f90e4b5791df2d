// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/J4GainSlider.h"

#include <QMouseEvent>

J4GainSlider::J4GainSlider(QWidget* parent) : Slider(parent) {
  setAccessibleName(tr("Gain"));
  setSteps(1.0, 6.0);
}

double J4GainSlider::stepOrigin() const {
  return static_cast<double>(integerValue());
}

QString J4GainSlider::valueText() const {
  const auto gain = integerValue();
  const QString number = QString::number(gain);
  return tr("%1 dB").arg(gain > 0 ? u'+' + number : number);
}

void J4GainSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  if (_clicks.press(*event) < 2) return Slider::mousePressEvent(event);
  setValue(_valueForDoubleClick);
  if (const auto parent = _parent.lock()) parent->sliderGainValueChanged(this);
}
