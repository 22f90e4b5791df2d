// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/PicturePace.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kMilliseconds = 1000;  // of a second
constexpr double kUsualRefreshes = 60;
constexpr double kLeastPictures =
    29.5;  // of 59 and a half refreshes a picture stays for two as well

}  // namespace

double PicturePace::interval(double refreshRate) {
  const bool isKnown = std::isfinite(refreshRate) && refreshRate >= 1;
  const double rate = isKnown ? refreshRate : kUsualRefreshes;
  return std::max(1.0, std::floor(rate / kLeastPictures)) / rate;
}

void PicturePace::begin(Milliseconds now) {
  _due = static_cast<double>(now.count());
}

PicturePace::Milliseconds PicturePace::next(Milliseconds now, double interval) {
  const auto time = static_cast<double>(now.count());
  const double step = interval * kMilliseconds;
  _due += step * std::max(1.0, std::ceil((time - _due) / step));
  return Milliseconds(std::max(1LL, std::llround(_due - time)));
}
