// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/alsa/AlsaWire.h"

std::unique_ptr<AlsaWire> makeAlsaEventWire(snd_seq_t* /*sequencer*/) {
  return nullptr;
}
