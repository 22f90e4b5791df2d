// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <alsa/asoundlib.h>

#include <string>

#include "midi/alsa/AlsaMIDISystem.h"

std::string AlsaMIDISystem::library() {
  return std::string("alsa-lib ") + snd_asoundlib_version();
}
