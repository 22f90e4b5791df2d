// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/ClockText.h"

#include <cstdint>

QString ClockText::of(double seconds) {
  constexpr std::int64_t kMinute = 60;
  constexpr std::int64_t kHour = 60 * kMinute;
  const auto whole = static_cast<std::int64_t>(seconds);
  const auto two = [](std::int64_t number) {
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
  };
  return QStringLiteral("%1:%2:%3")
      .arg(two(whole / kHour), two(whole / kMinute % kMinute), two(whole % kMinute));
}
