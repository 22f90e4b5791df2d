// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/TimeLeft.h"

#include <QCoreApplication>
#include <cmath>

QString TimeLeft::text(double elapsedSeconds, double done) {
  constexpr double kShortest = 1.0;
  constexpr double kLeast = 0.01;
  constexpr double kMinute = 60.0;
  if (elapsedSeconds < kShortest || done < kLeast) return {};
  const double seconds = std::ceil(elapsedSeconds * (1.0 - done) / done);
  if (seconds < kMinute) {
    return QCoreApplication::translate("TimeLeft", "About %1 s left").arg(seconds);
  }
  return QCoreApplication::translate("TimeLeft", "About %1 min left")
      .arg(std::ceil(seconds / kMinute));
}
