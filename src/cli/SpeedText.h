// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

/// How fast bytes are worked on, and how long it will take, by the clock since it was made.
class SpeedText {
 public:
  using Clock = std::chrono::steady_clock;
  using Now = std::function<Clock::time_point()>;

  explicit SpeedText(Now now = Clock::now) : _now(std::move(now)), _begin(_now()) {}

  /// "84.2 MB/s, 00:03:12 left" of all bytes that are done and to be done; empty in the first
  /// second, which tells nothing yet.
  [[nodiscard]] std::string text(std::uint64_t done, std::uint64_t total) const;

 private:
  Now _now;
  Clock::time_point _begin;
};
