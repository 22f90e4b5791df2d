// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/LoopMarks.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "controls/Colors.h"

namespace {

constexpr int kVeil = 0x1C;  // of 0xFF: the waveform stays what is seen
constexpr double kFlag = 11;
constexpr double kLine = 2;

bool isNear(const TimeWindow& window, double place, double seconds) {
  return std::fabs(window.placeOf(seconds) - place) <= LoopMarks::kReach;
}

QRectF flagAt(double x, const QRectF& body, const QFontMetrics& metrics, const QString& letter) {
  const QSizeF text = metrics.tightBoundingRect(letter).size();
  const double side = std::max(kFlag, std::ceil(std::max(text.width(), text.height())) + 3);
  return {x - side / 2, std::max(0.0, body.top() - side - 2), side, side};
}

}  // namespace

LoopMarks::LoopMarks()
    : _letters{QCoreApplication::translate("LoopMarks", "A", "beginning of a loop"),
               QCoreApplication::translate("LoopMarks", "B", "end of a loop")} {}

bool LoopMarks::set(const std::optional<Marks>& marks) {
  if (marks == _marks) return false;
  _marks = marks;
  return true;
}

// Of two marks in reach the later one: it can always be moved away.
std::optional<double> LoopMarks::opposite(const TimeWindow& window, double place) const {
  if (!_marks || !_marks->b) return std::nullopt;
  if (isNear(window, place, *_marks->b)) return _marks->a;
  return isNear(window, place, _marks->a) ? _marks->b : std::nullopt;
}

void LoopMarks::press(const TimeWindow& window, double place) {
  _isHeld = true;
  _isDragged = false;
  _pressed = place;
  _fixed = opposite(window, place).value_or(window.timeAt(place));
}

void LoopMarks::drag(const TimeWindow& window, double place) {
  _isDragged = _isDragged || std::fabs(place - _pressed) >= kDrag;
  if (!_isDragged) return;
  const double other = window.timeAt(place);
  _drawn = Marks{std::min(_fixed, other), std::max(_fixed, other)};
}

std::optional<LoopMarks::Marks> LoopMarks::release() {
  const bool wasDragged = _isDragged;
  letGo();
  return wasDragged ? _drawn : std::nullopt;
}

void LoopMarks::drawStretch(QPainter& painter, const TimeWindow& window, const QRectF& body) const {
  const std::optional<Marks>& shown = marks();
  if (!shown || !shown->b) return;
  const double left = std::max(body.left(), body.left() + window.placeOf(shown->a));
  const double right = std::min(body.right(), body.left() + window.placeOf(*shown->b));
  QColor veil = Colors::accent();
  veil.setAlpha(kVeil);
  if (right > left) painter.fillRect(QRectF(left, body.top(), right - left, body.height()), veil);
}

LoopMarks::Flags LoopMarks::flags(const QFont& font, const TimeWindow& window,
                                  const QRectF& body) const {
  const std::optional<Marks>& shown = marks();
  if (!shown) return {};
  const QFontMetrics metrics(font);
  const auto flag = [&](double seconds, const QString& letter) {
    if (!window.holds(seconds)) return QRectF();
    return flagAt(std::round(body.left() + window.placeOf(seconds)), body, metrics, letter);
  };
  return {flag(shown->a, _letters[0]), shown->b ? flag(*shown->b, _letters[1]) : QRectF()};
}

void LoopMarks::drawMarks(QPainter& painter, const TimeWindow& window, const QRectF& body) const {
  const Flags all = flags(painter.font(), window, body);
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (!all.at(i).isEmpty()) drawMark(painter, all.at(i), body, _letters.at(i));
  }
}

void LoopMarks::drawMark(QPainter& painter, const QRectF& flag, const QRectF& body,
                         const QString& letter) {
  const double x = flag.center().x();
  painter.fillRect(QRectF(x - kLine / 2, body.top() - 2, kLine, body.height() + 2),
                   Colors::accent());
  painter.fillRect(flag, Colors::accent());
  painter.setPen(Colors::AppBG());
  painter.drawText(flag, Qt::AlignCenter, letter);
}
