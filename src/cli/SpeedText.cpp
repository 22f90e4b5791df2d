// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/SpeedText.h"

#include <fmt/format.h>

#include <algorithm>

#include "cli/TimeText.h"

std::string SpeedText::text(std::uint64_t done, std::uint64_t total) const {
  constexpr std::size_t kWithoutMilliseconds = 8;
  const double seconds = std::chrono::duration<double>(_now() - _begin).count();
  if (seconds < 1 || done == 0) return "";
  const double speed = static_cast<double>(done) / seconds;
  const double left = static_cast<double>(total - std::min(done, total)) / speed;
  return fmt::format("{:.1f} MB/s, {} left", speed / 1e6,
                     TimeText::of(left).substr(0, kWithoutMilliseconds));
}
