// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// A machine whose memory runs out: while one of these is there, `new` throws std::bad_alloc for
/// every piece of at least so many bytes on every thread but the one that made it. One at a time.
/// Linked, it stands for the program's own `new` and `delete`.
class RefusedMemory {
 public:
  explicit RefusedMemory(std::size_t atLeast);
  RefusedMemory(const RefusedMemory&) = delete;
  RefusedMemory& operator=(const RefusedMemory&) = delete;
  ~RefusedMemory();

  /// How often it was refused. Any thread.
  [[nodiscard]] static int count();
};

/// What the program holds by `new`, counted where these files are linked. Any thread.
class HeldMemory {
 public:
  /// Counts from here on: what is held by now is 0.
  static void watch();
  /// The most bytes that have been held at once since `watch`.
  [[nodiscard]] static std::size_t most();
};
