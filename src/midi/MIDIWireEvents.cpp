// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIWireEvents.h"

#include <utility>

#include "midi/MIDICommon.h"
#include "midi/MIDIReceiveBuffer.h"

namespace {

bool isShortMessage(std::span<const std::uint8_t> piece) {
  return piece[0] >= 0x80 && piece[0] != MIDIReceiveBuffer::kSysExStart &&
         piece[0] != MIDIReceiveBuffer::kSysExEnd;
}

MIDIWireEvents::Words shortMessage(std::span<const std::uint8_t> piece) {
  const bool isChannels = piece[0] < MIDIReceiveBuffer::kSysExStart;
  std::uint32_t word = isChannels ? MIDICommon::kChannelType : MIDICommon::kSystemType;
  word <<= 28;
  for (std::size_t i = 0; i < piece.size(); ++i) word |= std::uint32_t{piece[i]} << (16 - 8 * i);
  return {word};
}

}  // namespace

std::vector<MIDIWireEvents::Words> MIDIWireEvents::feed(std::span<const std::uint8_t> piece) {
  if (!piece.empty() && isShortMessage(piece)) {
    _isOpen = false;
    return {shortMessage(piece)};
  }
  for (const std::uint8_t byte : piece) takeSysEx(byte);
  return std::exchange(_finished, {});
}

void MIDIWireEvents::takeSysEx(std::uint8_t byte) {
  if (byte == MIDIReceiveBuffer::kSysExStart) {
    _isOpen = true;
    _hasBegun = false;
    _held = 0;
    return;
  }
  if (!_isOpen) return;
  if (byte == MIDIReceiveBuffer::kSysExEnd) {
    finishPacket(true);
    return;
  }
  // A full packet goes only when it is known not to be the last.
  if (_held == _payload.size()) finishPacket(false);
  _payload[_held++] = byte;
}

void MIDIWireEvents::finishPacket(bool isEnd) {
  const int status = _hasBegun ? (isEnd ? 3 : 2) : (isEnd ? 0 : 1);
  const GLPacket packet = MIDICommon::createPackage(0, static_cast<std::uint8_t>(status),
                                                    static_cast<int>(_held), _payload.data());
  _finished.emplace_back(packet.data.begin(), packet.data.end());
  _hasBegun = true;
  _isOpen = !isEnd;
  _held = 0;
}

std::vector<std::uint8_t> MIDIWireEvents::bytesOf(std::span<const std::uint32_t> words) {
  if (words.size() != 2 || MIDICommon::messageType(words[0]) != MIDICommon::kSysExType) return {};
  const std::uint8_t status = MIDICommon::messageStatus(words[0]);
  std::vector<std::uint8_t> bytes;
  if (status <= 1) bytes.push_back(MIDIReceiveBuffer::kSysExStart);
  for (std::size_t k = 0; k < MIDICommon::messageChannel(words[0]) && k < 6; ++k) {
    const std::size_t at = 2 + k;
    bytes.push_back(static_cast<std::uint8_t>(words[at / 4] >> (24 - 8 * (at % 4))));
  }
  if (status == 0 || status == 3) bytes.push_back(MIDIReceiveBuffer::kSysExEnd);
  return bytes;
}
