// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/LevelMeterScale.h"

#include <algorithm>

namespace {

constexpr double kUnitsBelow = 24.0;
constexpr double kUnitsAbove = 30.0;

}  // namespace

LevelMeterScale::LevelMeterScale(double height)
    : _below((2.0 * height / 7.0) / kUnitsBelow),
      _above((height - 2.0 * height / 7.0) / kUnitsAbove) {}

double LevelMeterScale::place(double level, double height) {
  const double knee = 2.0 * height / 7.0;
  const double at = level < kUnitsBelow
                        ? level / kUnitsBelow * knee
                        : knee + (level - kUnitsBelow) / kUnitsAbove * (height - knee);
  return std::clamp(at, 0.0, height);
}

double LevelMeterScale::visibleHeight(std::int64_t level, double height) const {
  if (level < kKnee) return static_cast<double>(level) * _below;
  return 2.0 * (height / 7.0) + static_cast<double>(level - kKnee) * _above;
}
