// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/WaveformRuler.h"

#include <QFontMetrics>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "controls/Appearance.h"
#include "controls/Colors.h"

namespace {

constexpr double kRulerHeight = 15;  // at least
constexpr int kMarkGap = 70;         // between marks at least
constexpr double kMark = 4;
constexpr double kBeside = 4;  // from the left edge of a mark to its time
constexpr double kApart = 10;  // between two times
constexpr double kBeyond = 5;  // a time may reach over the end of the stretch
constexpr double kClear = 3;   // between a time and what covers the ruler

// No digit is wider, in a font whose digits differ.
QString widest(QString time) {
  for (QChar& one : time) {
    if (one.isDigit()) one = u'8';
  }
  return time;
}

bool isFree(const QRectF& place, std::span<const QRectF> covered) {
  return std::ranges::none_of(covered, [&](const QRectF& cover) {
    return cover.adjusted(-kClear, 0, kClear, 0).intersects(place);
  });
}

}  // namespace

void WaveformRuler::setFont(const QFont& font) {
  _small = Appearance::small(font);
  _height = std::max<double>(kRulerHeight, QFontMetrics(_small).height());
  _leastGap = Appearance::lineWidth(kMarkGap, font);
  _asked = {};
}

// Between two marks there is room for the times of both: the last of all may have its own there.
double WaveformRuler::gap(const TimeWindow& stretch, double perPixel) {
  const std::array asked = {stretch.to(), perPixel};
  if (asked == _asked) return _gap;
  _asked = asked;
  const double step = TimeRuler::stepOf(_leastGap * perPixel);
  const QString time = widest(TimeRuler::text(stretch.to(), step));
  const double both = 2 * (QFontMetricsF(_small).horizontalAdvance(time) + kBeside);
  _gap = std::max(_leastGap, both + kApart);
  return _gap;
}

QRectF WaveformRuler::placeOf(double wide, double x, double end) const {
  const bool isRight = x + kBeside + wide <= end;
  return {isRight ? x + kBeside : x + 1 - kBeside - wide, 0, wide, _height};
}

void WaveformRuler::draw(QPainter& painter, const TimeWindow& stretch, const QRectF& body,
                         std::span<const QRectF> covered) {
  painter.setFont(_small);
  const QFontMetricsF metrics(_small);
  const double perPixel = (stretch.to() - stretch.from()) / std::max(1.0, body.width());
  const double least = gap(stretch, perPixel);
  double end = -least;  // of the time before
  for (const TimeRuler::Mark& mark : _times.shown(stretch.from(), stretch.to(), least * perPixel)) {
    const double x = std::round(body.left() + stretch.placeOf(mark.seconds));
    painter.fillRect(QRectF(x, _height - kMark - 8, 1, kMark + 4), Colors::line());
    const double wide = std::ceil(metrics.horizontalAdvance(mark.label));
    const QRectF place = placeOf(wide, x, body.right() + kBeyond);
    if (place.left() < body.left() - kBeyond || !isFree(place, covered)) continue;
    // The last one, left of its mark, is as far from the one before as any two others at least.
    if (place.left() < x && place.left() - end < least - wide) continue;
    end = place.right();
    painter.setPen(Colors::dimText());
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, mark.label);
  }
}
