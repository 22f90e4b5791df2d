// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/RecorderSettings.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>

std::span<const RecorderChoice> RecorderSettings::batteryTypes() {
  static constexpr std::array<RecorderChoice, 4> kTypes = {
      {{0, QT_TRANSLATE_NOOP("RecorderSettings", "Alkaline")},
       {1, QT_TRANSLATE_NOOP("RecorderSettings", "Ni-MH")},
       {2, QT_TRANSLATE_NOOP("RecorderSettings", "Lithium")},
       {3, QT_TRANSLATE_NOOP("RecorderSettings", "Li-ion")}}};
  return kTypes;
}

std::span<const RecorderChoice> RecorderSettings::autoPowerOffTimes() {
  static constexpr std::array<RecorderChoice, 4> kTimes = {
      {{1, QT_TRANSLATE_NOOP("RecorderSettings", "10 minutes")},
       {2, QT_TRANSLATE_NOOP("RecorderSettings", "30 minutes")},
       {3, QT_TRANSLATE_NOOP("RecorderSettings", "1 hour")},
       {0, QT_TRANSLATE_NOOP("RecorderSettings", "Off")}}};
  return kTimes;
}

std::string_view RecorderSettings::titleOf(std::span<const RecorderChoice> choices,
                                           std::uint8_t value) {
  const auto choice = std::ranges::find(choices, value, &RecorderChoice::value);
  return choice == choices.end() ? "unknown" : choice->title;
}
