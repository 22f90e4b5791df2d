// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/RowFacts.h"

#include <fmt/format.h>

#include <cstdint>

QString RowFacts::durationText() const {
  constexpr std::int64_t kMinute = 60;
  if (!seconds) return {};
  const auto whole = static_cast<std::int64_t>(*seconds);
  const std::int64_t hours = whole / kMinute / kMinute;
  const std::string rest = fmt::format("{:02}:{:02}", whole / kMinute % kMinute, whole % kMinute);
  return QString::fromStdString(hours > 0 ? fmt::format("{:02}:{}", hours, rest) : rest);
}
