// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaSettling.h"

void AlsaSettling::disturb() {
  _quiet = _clock.after(kQuietSeconds, [this] { settle(); });
  if (!_longest) _longest = _clock.after(kLongestSeconds, [this] { settle(); });
}

void AlsaSettling::settle() {
  const auto quiet = std::move(_quiet);
  const auto longest = std::move(_longest);
  _settled();
}
