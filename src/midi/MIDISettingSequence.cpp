// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDISettingSequence.h"

namespace {

constexpr std::int64_t kWaiting = 2;

}  // namespace

void MIDISettingSequence::startSequence() {
  markTimeOutWithDescription(_setting.description);
  send(RecorderProtocol::setting(_setting.request, static_cast<std::uint8_t>(_param)));
  setSeq(kWaiting);
}

void MIDISettingSequence::receivedMidi(const std::uint8_t* bytes, std::int32_t length) {
  const RecorderProtocol::View message(bytes, static_cast<std::size_t>(length));
  const bool isAwaited =
      seq() == kWaiting &&
      RecorderProtocol::isReply(RecorderProtocol::replyTo(_setting.request), message);
  if (!isAwaited) return;
  cleanTimeOutTimer();
  setSeq(0);
  dispose();
}
