// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

/// Where in a queue's frames the reading turned back, so that the place in the file follows from
/// the frames that were heard. Owner's thread only.
class LoopTurns {
 public:
  LoopTurns() { _turns.reserve(kUsual); }

  /// Nothing is queued.
  void clear();
  /// So many frames more were queued.
  void add(std::uint64_t frames) { _queued += frames; }
  /// What is queued next lies so many frames before where the reading was. `heard`, the frames of
  /// the queue heard by now: turns before them are forgotten.
  void turn(std::uint64_t back, double heard);

  /// How many frames before its place without any turn the one is that comes after `heard` frames.
  [[nodiscard]] std::uint64_t backAt(double heard) const;
  /// Whether a turn is queued and still to be heard.
  [[nodiscard]] bool isAhead(double heard) const;

 private:
  static constexpr std::size_t kUsual = 64;

  struct Turn {
    std::uint64_t queued;  ///< before it
    std::uint64_t back;    ///< of all turns up to this one
  };

  std::uint64_t _queued = 0;
  std::vector<Turn> _turns;
};
