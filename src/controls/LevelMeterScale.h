// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// From level units to heights, in two straight pieces: 24 units fill the lower two sevenths of a
/// bar, the next 30 the other five. Pure figures; any thread.
class LevelMeterScale {
 public:
  static constexpr std::int64_t kKnee = 24;
  /// Fills the bar.
  static constexpr std::int64_t kFull = 54;

  /// Not set: every unit is 0 high.
  LevelMeterScale() = default;
  explicit LevelMeterScale(double height);

  [[nodiscard]] bool isSet() const { return _above > 0.0; }
  /// How much of a bar of `height` a level fills. The knee follows `height`; the units are those
  /// of the height that the scale was made for. Beyond 54 it is more than the bar.
  [[nodiscard]] double visibleHeight(std::int64_t level, double height) const;
  /// Where a level between the units lies in a bar of `height`, from its lower end; no lower than
  /// that and no higher than its upper one.
  static double place(double level, double height);

 private:
  double _below = 0.0;  ///< one unit up to the knee
  double _above = 0.0;  ///< one unit beyond it
};
