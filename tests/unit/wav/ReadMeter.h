// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// Counts what this program reads from files by offset, and makes it hang as a bad medium does. It
/// stands before the C library. Any thread.
class ReadMeter {
 public:
  static void reset();
  static std::uint64_t reads();
  static std::uint64_t bytes();

  /// From now on every read waits, before it reads, until `letGo`.
  static void hang();
  static void letGo();
  /// From now on nothing from this offset on can be read, as in a sector that is worn; `reset`
  /// mends it.
  static void breakFrom(std::uint64_t offset);
  /// Waits until a read hangs.
  static void waitUntilHanging();
};
