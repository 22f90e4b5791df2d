// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>

/// Threads that share the work of the main one.
class Helpers {
 public:
  /// Does `work`, which does not throw, on so many threads, of which the caller's is one, and waits
  /// for all of them. Where no more threads can be had, fewer do it.
  static void run(std::size_t threads, const std::function<void()>& work);
};
