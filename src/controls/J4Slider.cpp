// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/J4Slider.h"

#include <QMouseEvent>

J4Slider::J4Slider(QWidget* parent) : Slider(parent) {
  setAccessibleName(tr("Position"));
}

void J4Slider::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) setIsSeeking(true);
  Slider::mousePressEvent(event);
}
