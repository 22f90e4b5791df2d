// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>
#include <optional>

/// Frames [first, end) of a file that are played over and over: who reads on from anywhere before
/// the end turns back to the first one there. Who begins at the end or after it reads on. Pure
/// figures; any thread.
struct FrameLoop {
  std::uint64_t first = 0;
  std::uint64_t end = 0;  ///< after `first`

  bool operator==(const FrameLoop&) const = default;
  [[nodiscard]] bool holds(std::uint64_t frame) const { return frame >= first && frame < end; }

  /// How many frames come in order from `frame` on, before the turn; without one, no end of them.
  static std::uint64_t untilTurn(const std::optional<FrameLoop>& loop, std::uint64_t frame) {
    const bool turns = loop && frame < loop->end;
    return turns ? loop->end - frame : std::numeric_limits<std::uint64_t>::max();
  }
  /// The frame that follows `count` ones from `frame` on, no more of them than until the turn.
  static std::uint64_t following(const std::optional<FrameLoop>& loop, std::uint64_t frame,
                                 std::uint64_t count) {
    return count == untilTurn(loop, frame) ? loop->first : frame + count;
  }
};
