// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/KeyboardFocus.h"

#include "controls/Colors.h"

void KeyboardFocus::gained(Qt::FocusReason reason) {
  // A window or a menu that gives the focus back changes nothing about how it came here.
  if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return;
  _isShown = reason != Qt::MouseFocusReason;
}

void KeyboardFocus::drawRing(QPainter& painter, const QRectF& knob) {
  const double width = 3.0;
  const double inset = width / 2.0;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Colors::focusRing(), width));
  painter.drawEllipse(knob.adjusted(inset, inset, -inset, -inset));
}
