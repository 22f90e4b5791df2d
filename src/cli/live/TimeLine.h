// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// The line that tells where a player is, made to fit a terminal.
class TimeLine {
 public:
  struct State {
    std::string_view name;
    std::string_view time;
    std::string_view duration;
    std::int64_t width = 0;
    std::int64_t gain = 0;
    bool isPaused = false;
  };

  /// At most `columns` wide: the name is cut in its middle, left out where hardly any of it would
  /// stay, then the words beside the numbers, at last the end of the line.
  static std::string of(const State& state, std::size_t columns);
};
