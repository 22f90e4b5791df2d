// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// How much of a take an export, or a look at what it will be, works on at once.
struct ExportBlocks {
  static constexpr std::size_t kFloats = 5120;  ///< decoded: they stay in the nearest cache
  /// From integers to integers: whole vectors of any width, and the six samples that they touch
  /// beyond what they are for.
  static constexpr std::size_t kRecodedFrames = 10883;
  static constexpr std::size_t kReadBytes = 1 << 19;  ///< of the file
};
