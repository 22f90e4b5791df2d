// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/ElidedLabel.h"

#include <QPainter>

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

// A line of text may be a pixel higher than one that is empty.
QSize ElidedLabel::sizeHint() const {
  ensurePolished();
  return {QLabel::sizeHint().width(), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const {
  return {0, sizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(palette().color(foregroundRole()));
  painter.drawText(rect(), Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
}
