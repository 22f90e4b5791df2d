// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/CorrelationBar.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/AccessibleFactory.h"
#include "controls/Appearance.h"
#include "controls/Colors.h"
#include "controls/FigureAccessible.h"
#include "controls/NumberText.h"

namespace {

constexpr double kBarTop = 3;
constexpr double kBarHeight = 6;
constexpr double kBarRadius = 3;
constexpr double kMarkWidth = 3;
constexpr double kMarkHeight = 12;

QAccessibleInterface* makeReadableBar(CorrelationBar& bar) {
  return new FigureAccessible(bar, bar);
}

}  // namespace

CorrelationBar::CorrelationBar(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<CorrelationBar, makeReadableBar>();
  setAccessibleName(tr("Correlation"));
}

void CorrelationBar::setValue(std::optional<double> value) {
  if (value && std::isnan(*value)) value.reset();
  if (value) value = std::clamp(*value, -1.0, 1.0);
  const double pixels = devicePixelRatioF();
  const auto place = [&](std::optional<double> at) { return std::round(xOf(*at) * pixels); };
  const bool isSame =
      value.has_value() == _value.has_value() && (!value || place(value) == place(_value));
  _value = value;
  if (!isSame) update(0, 0, width(), static_cast<int>(kMarkHeight));
}

std::optional<int> CorrelationBar::hundredths(std::optional<double> value) {
  if (!value) return std::nullopt;
  return static_cast<int>(std::lround(std::clamp(*value, -1.0, 1.0) * 100));
}

QString CorrelationBar::text(std::optional<double> value) {
  const std::optional<int> shown = hundredths(value);
  if (!shown) return QStringLiteral("–");
  QString digits = NumberText::of(std::abs(*shown) / 100.0, 2);
  if (*shown == 0) return digits;
  return (*shown > 0 ? u'+' : u'-') + digits;
}

double CorrelationBar::xOf(double value) const {
  const double half = (width() - kMarkWidth) / 2;
  return kMarkWidth / 2 + half + value * half;
}

QSize CorrelationBar::sizeHint() const {
  return {144,
          static_cast<int>(kMarkHeight) + 2 + QFontMetrics(Appearance::small(font())).height()};
}

// The figures under the bar stay, and are only written where they are to be painted.
void CorrelationBar::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Colors::barEdge(), 1));
  painter.setBrush(Colors::ControlColor());
  const QRectF track(0.5, kBarTop + 0.5, width() - 1, kBarHeight - 1);
  painter.drawRoundedRect(track, kBarRadius, kBarRadius);
  painter.setPen(Qt::NoPen);
  if (_value) {
    const double from = std::min(xOf(0), xOf(*_value));
    const double to = std::max(xOf(0), xOf(*_value));
    painter.fillRect(QRectF(from, kBarTop, to - from, kBarHeight),
                     *_value < 0 ? Colors::over() : Colors::accent());
    painter.setBrush(Colors::WHITE());
    painter.drawRoundedRect(QRectF(xOf(*_value) - kMarkWidth / 2, 0, kMarkWidth, kMarkHeight), 1,
                            1);
  }
  const QRectF below(0, kMarkHeight + 2, width(), height() - kMarkHeight - 2);
  if (event->rect().bottom() < below.top()) return;
  painter.setFont(Appearance::small(font()));
  painter.setPen(Colors::dimText());
  painter.drawText(below, Qt::AlignLeft | Qt::AlignTop, QStringLiteral("−1"));
  painter.drawText(below, Qt::AlignHCenter | Qt::AlignTop, QStringLiteral("0"));
  painter.drawText(below, Qt::AlignRight | Qt::AlignTop, QStringLiteral("+1"));
}
