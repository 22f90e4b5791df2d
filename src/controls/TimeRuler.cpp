// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/TimeRuler.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "controls/NumberText.h"

namespace {

constexpr std::array kSteps = {0.001, 0.002, 0.005, 0.01,  0.02,  0.05,   0.1,    0.2,   0.5,
                               1.0,   2.0,   5.0,   10.0,  15.0,  30.0,   60.0,   120.0, 300.0,
                               600.0, 900.0, 1800., 3600., 7200., 10800., 21600.0};
constexpr double kTolerance = 1e-9;  // of a step: a mark on the edge is none inside

int decimalsOf(double step) {
  if (step >= 1) return 0;
  if (step >= 0.1) return 1;
  return step >= 0.01 ? 2 : 3;
}

}  // namespace

double TimeRuler::stepOf(double least) {
  const auto* const found = std::ranges::lower_bound(kSteps, least);
  return found == kSteps.end() ? std::ceil(least / kSteps.back()) * kSteps.back() : *found;
}

std::vector<TimeRuler::Mark> TimeRuler::marks(double from, double to, double least) {
  std::vector<Mark> marks;
  if (!(least > 0) || !(to > from)) return marks;
  const double step = stepOf(least);
  // Counted, so that no error adds up.
  for (double n = std::floor(from / step + kTolerance) + 1; n * step < to - kTolerance * step;
       ++n) {
    marks.push_back({n * step, text(n * step, step)});
  }
  return marks;
}

const std::vector<TimeRuler::Mark>& TimeRuler::shown(double from, double to, double least) {
  const std::array asked = {from, to, least};
  if (asked != _asked) _shown = marks(from, to, least);
  _asked = asked;
  return _shown;
}

QString TimeRuler::text(double seconds, double step) {
  const int decimals = decimalsOf(step);
  const double unit = std::pow(10.0, decimals);
  const auto units = static_cast<long long>(std::llround(std::max(0.0, seconds) * unit));
  const auto perSecond = static_cast<long long>(unit);
  const long long whole = units / perSecond;
  const auto two = [](long long number) {
    return QStringLiteral("%1").arg(number, 2, 10, QChar('0'));
  };
  QString text = two(whole / 60 % 60) + u':' + two(whole % 60);
  if (whole >= 3600) text = QString::number(whole / 3600) + u':' + text;
  if (decimals == 0) return text;
  const auto part = QStringLiteral(".%1").arg(units % perSecond, decimals, 10, QChar('0'));
  return text + NumberText::localized(part);
}
