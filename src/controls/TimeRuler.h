// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <array>
#include <vector>

/// Where a ruler under a stretch of time has its marks, and how times are written on it. Pure
/// figures; any thread, one at a time for a ruler.
class TimeRuler {
 public:
  struct Mark {
    double seconds = 0;
    QString label;
  };

  /// Marks strictly inside the stretch, at round times at least `least` seconds apart; none where
  /// the stretch is empty.
  static std::vector<Mark> marks(double from, double to, double least);
  /// The same of this ruler, which has written them down; valid until the next call. As long as the
  /// stretch stays, nothing is written anew.
  const std::vector<Mark>& shown(double from, double to, double least);
  /// The round time that marks are apart: the smallest that is at least `least`.
  static double stepOf(double least);
  /// "mm:ss" or, from an hour on, "h:mm:ss"; with as many decimals as a step needs, at most three.
  static QString text(double seconds, double step);

 private:
  std::array<double, 3> _asked{};  ///< from, to, least
  std::vector<Mark> _shown;
};
