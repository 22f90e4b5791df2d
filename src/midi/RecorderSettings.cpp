// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/RecorderSettings.h"

#include <algorithm>
#include <array>

std::span<const RecorderChoice> RecorderSettings::batteryTypes() {
  static constexpr std::array<RecorderChoice, 4> kTypes = {
      {{0, "Alkaline"}, {1, "Ni-MH"}, {2, "Lithium"}, {3, "Li-ion"}}};
  return kTypes;
}

std::span<const RecorderChoice> RecorderSettings::autoPowerOffTimes() {
  static constexpr std::array<RecorderChoice, 4> kTimes = {
      {{1, "10 minutes"}, {2, "30 minutes"}, {3, "1 hour"}, {0, "Off"}}};
  return kTimes;
}

std::string_view RecorderSettings::titleOf(std::span<const RecorderChoice> choices,
                                           std::uint8_t value) {
  const auto choice = std::ranges::find(choices, value, &RecorderChoice::value);
  return choice == choices.end() ? "unknown" : choice->title;
}
