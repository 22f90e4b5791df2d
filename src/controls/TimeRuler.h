// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <vector>

/// Where a ruler under a stretch of time has its marks, and how times are written on it. Pure
/// figures; any thread.
class TimeRuler {
 public:
  struct Mark {
    double seconds = 0;
    QString label;
  };

  /// Marks strictly inside the stretch, at round times at least `least` seconds apart; none where
  /// the stretch is empty.
  static std::vector<Mark> marks(double from, double to, double least);
  /// The round time that marks are apart: the smallest that is at least `least`.
  static double stepOf(double least);
  /// "mm:ss" or, from an hour on, "h:mm:ss"; with as many decimals as a step needs, at most three.
  static QString text(double seconds, double step);
};
