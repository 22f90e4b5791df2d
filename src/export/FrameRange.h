// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// Frames [first, end) of a take. Plain data.
struct FrameRange {
  std::uint64_t first = 0;
  std::uint64_t end = 0;

  bool operator==(const FrameRange&) const = default;
};
