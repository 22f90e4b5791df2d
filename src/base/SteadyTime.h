// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

/// The time since some fixed moment, which only goes forward. Stateless; any thread.
class SteadyTime {
 public:
  /// What stands in its place in tests.
  using Clock = std::function<std::chrono::milliseconds()>;

  static std::chrono::milliseconds now() {
    using std::chrono::steady_clock;
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        steady_clock::now().time_since_epoch());
  }
};
