// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDISettingSequence.h"

namespace {

constexpr std::int64_t kWaiting = 2;

}  // namespace

void MIDISettingSequence::startSequence() {
  markTimeOutWithDescription(_setting.description);
  send(
      {0xF0, 0x52, 0x00, 0x00, 0x31, _setting.subCommand, static_cast<std::uint8_t>(_param), 0xF7});
  setSeq(kWaiting);
}

void MIDISettingSequence::receivedMidi(const std::uint8_t* bytes, std::int32_t length) {
  const bool isAwaited =
      seq() == kWaiting && length == 6 && bytes[4] == 0x00 && bytes[5] == _setting.acknowledgement;
  if (!isAwaited) return;
  cleanTimeOutTimer();
  setSeq(0);
  dispose();
}
