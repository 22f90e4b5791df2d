// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TabularLabel.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace {

double digitWidth(const QFontMetricsF& metrics) {
  double widest = 0.0;
  for (char digit = '0'; digit <= '9'; ++digit) {
    widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
  }
  return widest;
}

double widthOf(QChar letter, const QFontMetricsF& metrics, double digit) {
  return letter.isDigit() ? digit : metrics.horizontalAdvance(letter);
}

}  // namespace

double TabularLabel::textWidth() const {
  const QFontMetricsF metrics(font());
  const double digit = digitWidth(metrics);
  const QString all = text();  // a changeable one would be copied to be gone through
  double width = 0.0;
  for (const QChar letter : all) width += widthOf(letter, metrics, digit);
  return width;
}

QSize TabularLabel::sizeHint() const {
  return {static_cast<int>(std::ceil(textWidth())), fontMetrics().height()};
}

void TabularLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QFontMetricsF metrics(font());
  const double digit = digitWidth(metrics);
  painter.setPen(palette().color(foregroundRole()));
  const double rest = width() - textWidth();
  double x = 0.0;
  if (alignment().testFlag(Qt::AlignRight)) x = rest;
  if (alignment().testFlag(Qt::AlignHCenter)) x = rest / 2.0;
  const double base = std::round((height() - metrics.height()) / 2.0 + metrics.ascent());
  const QString all = text();
  for (const QChar& letter : all) {
    const double width = widthOf(letter, metrics, digit);
    const double inset = (width - metrics.horizontalAdvance(letter)) / 2.0;
    painter.drawText(QPointF(x + inset, base), QString::fromRawData(&letter, 1));
    x += width;
  }
}
