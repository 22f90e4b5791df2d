// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// Counts what this program reads from files by offset; it stands before the C library. Any thread.
class ReadMeter {
 public:
  static void reset();
  static std::uint64_t reads();
  static std::uint64_t bytes();
};
