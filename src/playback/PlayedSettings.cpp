// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/PlayedSettings.h"

#include <algorithm>
#include <limits>

void PlayedSettings::add(std::uint64_t first, std::uint64_t count,
                         const std::optional<FrameLoop>& loop, const Settings& settings) {
  const std::uint64_t inOrder = std::min(count, FrameLoop::untilTurn(loop, first));
  add({first, first + inOrder, settings});
  if (inOrder == count) return;
  const std::uint64_t turned = std::min(count - inOrder, loop->end - loop->first);
  add({loop->first, loop->first + turned, settings});
}

void PlayedSettings::add(const Entry& entry) {
  _entries.at(_next) = entry;
  _next = (_next + 1) % kKept;
}

PlayedSettings::Piece PlayedSettings::at(std::uint64_t frame) const {
  Piece found{.settings = {}, .end = std::numeric_limits<std::uint64_t>::max()};
  for (std::size_t age = 1; age <= kKept; ++age) {
    const Entry& entry = _entries.at((_next + kKept - age) % kKept);
    if (entry.end <= frame) continue;
    if (entry.first > frame) {
      found.end = std::min(found.end, entry.first);
    } else {
      return {entry.settings, std::min(found.end, entry.end)};
    }
  }
  return found;
}
