// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// Counts what the whole program holds on the heap, on every thread: each malloc, new and aligned
/// block at its full size, touched or not. Where the counts come from is a source of its own,
/// chosen in CMake: the C library's heap, or the hooks of a sanitizer. Safe on any thread.
class AllocationMeter {
 public:
  /// More than this at once ends the program, so that a runaway takes nothing else with it.
  static constexpr std::int64_t kStop = 1 << 30;

  /// Measures from here on; only one measurement at a time.
  static void start();
  /// The most bytes held since `start`, beyond those held then.
  static std::uint64_t peak();

  /// From the source of the counts.
  static void allocated(std::size_t bytes);
  static void freed(std::size_t bytes);
};
