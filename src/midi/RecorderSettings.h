// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// One choice of a setting: the value that the recorder knows it by, and its name for people. The
/// names are this program's own; the recorder has only numbers.
struct RecorderChoice {
  std::uint8_t value = 0;
  std::string_view title;
};

/// The values that the recorder's two settings can have, in the order of the menus that offer
/// them. Stateless; any thread.
class RecorderSettings {
 public:
  /// Choice i has value i.
  static std::span<const RecorderChoice> batteryTypes();
  /// The values 1, 2, 3 and then 0: off stands last though it is the lowest.
  static std::span<const RecorderChoice> autoPowerOffTimes();

  /// The place of an auto power-off value in its menu: value - 1, or 3 for the value 0. Values that
  /// no choice has are not caught.
  static int autoPowerOffIndex(std::uint8_t value) { return value >= 1 ? value - 1 : kOffIndex; }
  /// The value at a place of the menu: 1, 2, 3 for the first three, 0 for all others.
  static std::uint8_t autoPowerOffValue(int index) {
    return index >= 0 && index < kOffIndex ? static_cast<std::uint8_t>(index + 1) : 0;
  }

  /// The name of a value, "unknown" where no choice has it.
  static std::string_view titleOf(std::span<const RecorderChoice> choices, std::uint8_t value);

 private:
  static constexpr int kOffIndex = 3;
};
