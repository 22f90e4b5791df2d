// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/TimeWindow.h"

#include <algorithm>

namespace {

constexpr double kPageMargin = 0.05;  // of a page, left of the time that is followed

}  // namespace

void TimeWindow::setLength(double seconds) {
  _length = seconds > 0 ? seconds : 0;
  showAll();
}

void TimeWindow::setWidth(double pixels) {
  const bool wasWhole = isWhole();
  _width = std::max(0.0, pixels);
  place(_from, wasWhole ? _length : _span);
}

double TimeWindow::timeAt(double place) const {
  if (_width <= 0) return _from;
  return _from + std::clamp(place / _width, 0.0, 1.0) * _span;
}

double TimeWindow::placeOf(double time) const {
  return _span > 0 ? (time - _from) / _span * _width : 0;
}

void TimeWindow::zoom(double factor, double place) {
  if (!(factor > 0) || _width <= 0) return;
  const double share = std::clamp(place / _width, 0.0, 1.0);
  const double held = timeAt(place);
  const double span = std::clamp(_span * factor, std::min(_width * kClosest, _length), _length);
  this->place(held - share * span, span);
}

void TimeWindow::scroll(double pixels) {
  if (_width > 0) place(_from + pixels / _width * _span, _span);
}

void TimeWindow::showAll() {
  place(0, _length);
}

void TimeWindow::follow(double before, double now) {
  if (holds(before)) reveal(now);
}

void TimeWindow::reveal(double time) {
  if (!holds(time)) place(time - kPageMargin * _span, _span);
}

void TimeWindow::place(double from, double span) {
  _span = std::clamp(span, std::min(_width * kClosest, _length), _length);
  _from = std::clamp(from, 0.0, _length - _span);
}
