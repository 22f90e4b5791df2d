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
  /// Waits until a read hangs.
  static void waitUntilHanging();
};
