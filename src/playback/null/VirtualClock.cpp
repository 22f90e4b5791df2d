// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/null/VirtualClock.h"

#include <cstddef>

void VirtualClock::advance(int milliseconds) {
  for (int i = 0; i < milliseconds; ++i) {
    // By index: an owner may make and delete dials.
    std::size_t next = 0;
    while (next < _dials.size()) {
      Dial* const dial = _dials[next++];
      dial->passMillisecond();
      if (!_isOwnerStalled) dial->deliver();
    }
  }
}
