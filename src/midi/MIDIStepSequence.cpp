// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIStepSequence.h"

#include "midi/MIDIManager.h"

void MIDIStepSequence::sequenceTimeOut(const std::string& description) {
  MIDISequenceBase::sequenceTimeOut(description);
  dispose();
}

void MIDIStepSequence::dispose() {
  MIDISequenceBase::dispose();
  _seq = 0;
}

void MIDIStepSequence::send(std::span<const std::uint8_t> message) {
  MIDIManager::get().send(message.data(), static_cast<std::int64_t>(message.size()));
}
