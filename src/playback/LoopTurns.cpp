// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/LoopTurns.h"

void LoopTurns::clear() {
  _queued = 0;
  _turns.clear();
}

void LoopTurns::turn(std::uint64_t back, double heard) {
  const std::uint64_t before = _turns.empty() ? 0 : _turns.back().back;
  const auto isPast = [heard](const Turn& turn) {
    return static_cast<double>(turn.queued) <= heard;
  };
  while (_turns.size() > 1 && isPast(_turns[1])) _turns.erase(_turns.begin());
  _turns.push_back({_queued, before + back});
}

std::uint64_t LoopTurns::backAt(double heard) const {
  std::uint64_t back = 0;
  for (const Turn& turn : _turns) {
    if (static_cast<double>(turn.queued) <= heard) back = turn.back;
  }
  return back;
}

bool LoopTurns::isAhead(double heard) const {
  return !_turns.empty() && static_cast<double>(_turns.back().queued) > heard;
}
