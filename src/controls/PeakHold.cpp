// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/PeakHold.h"

#include <cmath>

#include "controls/NumberText.h"

void PeakHold::add(double magnitude) {
  if (magnitude > _peak) _peak = magnitude;
}

double PeakHold::decibels() const {
  return 20 * std::log10(_peak);
}

double PeakHold::tenths() const {
  return std::round(decibels() * 10) / 10;
}

QString PeakHold::text() const {
  const double shown = tenths();
  if (!std::isfinite(shown)) return _peak > 0 ? QStringLiteral("∞") : QStringLiteral("–");
  return NumberText::level(shown);
}
