// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ElidedButton.h"

#include <QPainter>

#include "controls/Colors.h"

namespace {

constexpr int kMargin = 4;
constexpr double kRadius = 3.0;

}  // namespace

ElidedButton::ElidedButton(QWidget* parent) : QPushButton(parent) {
  setFlat(true);
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::PointingHandCursor);
}

QSize ElidedButton::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 2 * kMargin, fontMetrics().height()};
}

void ElidedButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (underMouse()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Colors::hover());
    painter.drawRoundedRect(rect(), kRadius, kRadius);
  }
  const QRect room = rect().adjusted(kMargin, 0, -kMargin, 0);
  painter.setPen(Colors::WHITE());
  painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()));
  if (!hasFocus()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Colors::focusRing(), 2.0));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1.0, 1.0, -1.0, -1.0), kRadius, kRadius);
}
