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

QString PeakHold::text() const {
  const double value = decibels();
  if (!std::isfinite(value)) return _peak > 0 ? QStringLiteral("∞") : QStringLiteral("–");
  const double tenths = std::round(value * 10) / 10;
  QString digits = NumberText::of(std::abs(tenths), 1);
  if (tenths == 0) return digits;
  return digits.prepend(tenths > 0 ? u'+' : u'-');
}
