// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIEventAssembler.h"

#include <array>

#include "midi/MIDICommon.h"

namespace {

constexpr std::size_t kMostWords = 3;

enum SysExStatus : std::uint8_t { Complete = 0, Start = 1, Continue = 2, End = 3 };

std::uint8_t byteAt(std::span<const std::uint32_t> message, std::size_t index) {
  return static_cast<std::uint8_t>(message[index / 4] >> (24 - 8 * (index % 4)));
}

/// Bytes of a MIDI 1.0 message with this status.
std::uint32_t lengthOf(std::uint8_t status) {
  const auto masked = static_cast<std::uint8_t>(status | 0x80);
  if (masked < 0xC0) return 3;
  if (masked < 0xE0) return 2;
  if (masked < MIDIReceiveBuffer::kSysExStart || masked == 0xF2) return 3;
  return masked == 0xF1 || masked == 0xF3 ? 2 : 1;
}

}  // namespace

bool MIDIEventAssembler::convertMidiPacket2ByteArr(MIDIReceiveBuffer& buffer,
                                                   const MIDIEventPacket& packet) {
  std::span<const std::uint32_t> rest = packet.words;
  while (!rest.empty()) {
    const auto count = static_cast<std::size_t>(count_word_in_message(rest.front()));
    if (count > kMostWords || count > rest.size()) return false;
    if (convetMessageInfo(buffer, rest.first(count))) return true;
    rest = rest.subspan(count);
  }
  return false;
}

int MIDIEventAssembler::count_word_in_message(std::uint32_t word) {
  static constexpr std::array<int, 16> kWords = {1, 1, 1, 2, 2, 4, 1, 1, 2, 2, 2, 3, 3, 4, 4, 4};
  return kWords[MIDICommon::messageType(word)];
}

// Nothing is translated: both protocols carry what matters here in the same packets.
std::uint8_t MIDIEventAssembler::midi2ToMidi1DefaultTranslation(std::uint32_t word) {
  return MIDICommon::messageType(word);
}

bool MIDIEventAssembler::convetMessageInfo(MIDIReceiveBuffer& buffer,
                                           std::span<const std::uint32_t> message) {
  const std::uint8_t type = midi2ToMidi1DefaultTranslation(message[0]);
  if (message.size() == 2 && type == MIDICommon::kSysExType) return processSysEx(buffer, message);
  if (message.size() == 1 && type != 0) return processMessage1(buffer, message[0]);
  return false;
}

bool MIDIEventAssembler::processSysEx(MIDIReceiveBuffer& buffer,
                                      std::span<const std::uint32_t> message) {
  const std::uint8_t status = MIDICommon::messageStatus(message[0]);
  if (status > End) return false;
  if (status == Complete || status == Start) {
    buffer.begin(std::span(&MIDIReceiveBuffer::kSysExStart, 1));
  }
  insert_to_buffer(buffer, message);
  const bool isEnd = status == Complete || status == End;
  return isEnd && !buffer.dropIfSpoilt();
}

void MIDIEventAssembler::insert_to_buffer(MIDIReceiveBuffer& buffer,
                                          std::span<const std::uint32_t> message) {
  const std::size_t count = MIDICommon::messageChannel(message[0]);
  if (count < 1 || count > 6) return;
  std::array<std::uint8_t, 6> payload{};
  for (std::size_t k = 0; k < count; ++k) payload[k] = byteAt(message, 2 + k);
  buffer.append(std::span(payload).first(count));
}

bool MIDIEventAssembler::processMessage1(MIDIReceiveBuffer& buffer, std::uint32_t word) {
  const std::span message(&word, 1);
  const std::array<std::uint8_t, 3> bytes = {byteAt(message, 1), byteAt(message, 2),
                                             byteAt(message, 3)};
  buffer.replace(bytes, 1 + lengthOf(bytes[0]));
  return true;
}
