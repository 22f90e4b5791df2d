// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

/// When the next of some pictures that move is due. Each stays for as many whole refreshes of the
/// screen as make 30 to 60 pictures a second; what a timer cuts off or is late by does not add up.
/// Any one thread.
class PicturePace {
 public:
  using Milliseconds = std::chrono::milliseconds;

  /// Seconds that a picture stays on a screen with so many refreshes a second; what is no number of
  /// refreshes counts as 60. A screen that has fewer than 30 is given each.
  [[nodiscard]] static double interval(double refreshRate);

  /// A picture was shown at `now`.
  void begin(Milliseconds now);
  /// The time from `now` to the next picture, at least 1 ms: `interval` seconds after the last was
  /// due, or as many intervals as have passed meanwhile.
  [[nodiscard]] Milliseconds next(Milliseconds now, double interval);

 private:
  double _due = 0;  ///< milliseconds
};
