// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIRecvSDCardRemain.h"

#include "midi/SDCardReport.h"

void MIDIRecvSDCardRemain::receivedMidi(const std::uint8_t* bytes, std::int32_t length) {
  if (seq() != kListening || !SDCardReport::isOne(bytes, length)) return;
  SDCardReport::read(bytes, *_deviceInfo);
}
