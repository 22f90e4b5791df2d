// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/SizeText.h"

#include <fmt/format.h>

#include <cstdint>

std::string SizeText::of(float size) {
  constexpr float kGigabyte = 0x1p30F;
  const bool isSmall = size < kGigabyte;
  const float value = size * (isSmall ? 0x1p-20F : 0x1p-30F);
  const char* unit = isSmall ? "MB" : "GB";
  const auto exact = static_cast<double>(value);
  if (value < 10.0F) return fmt::format("{:.2f} {}", exact, unit);
  if (value < 100.0F) return fmt::format("{:.1f} {}", exact, unit);
  return fmt::format("{:3d} {}", static_cast<std::int64_t>(value), unit);
}
