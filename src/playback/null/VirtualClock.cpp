// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/null/VirtualClock.h"

#include <cstddef>

#include "playback/null/NullOutput.h"

void VirtualClock::advance(int milliseconds) {
  for (int i = 0; i < milliseconds; ++i) {
    // By index: a listener may make and delete outputs.
    std::size_t next = 0;
    while (next < _outputs.size()) {
      NullOutput* const output = _outputs[next++];
      output->playMillisecond();
      if (!_isOwnerStalled) output->deliver();
    }
  }
}
