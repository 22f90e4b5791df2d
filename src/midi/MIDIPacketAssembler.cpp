// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIPacketAssembler.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "midi/MIDILog.h"

namespace {

constexpr std::size_t kMostKept = 256;

void logMessage(const MIDIReceiveBuffer& buffer) {
  std::string text = "LOG GL RECV <--- HW: ";
  for (const std::uint8_t byte : std::span(buffer.bytes(), buffer.count())) {
    fmt::format_to(std::back_inserter(text), "{:02X},", byte);
  }
  MIDILog::write(text + "F7,\n\n");
}

}  // namespace

bool MIDIPacketAssembler::storeToBuffer(MIDIReceiveBuffer& buffer, const MIDIPacket& newData) {
  if (newData.bytes.empty()) return false;
  const bool isEnd = newData.bytes.back() == MIDIReceiveBuffer::kSysExEnd;
  const std::size_t length = newData.bytes.size() - (isEnd ? 1 : 0);
  place(buffer, newData.bytes.first(std::min(length, kMostKept)), length);
  if (!isEnd) return false;
  _is_message_received_finish_ios13 = true;
  if (buffer.dropIfSpoilt()) return false;
  logMessage(buffer);
  return true;
}

void MIDIPacketAssembler::place(MIDIReceiveBuffer& buffer, std::span<const std::uint8_t> kept,
                                std::size_t length) {
  const bool hasStart = !kept.empty() && kept.front() == MIDIReceiveBuffer::kSysExStart;
  if (hasStart) {
    buffer.begin({});
  } else if (_is_message_received_finish_ios13) {
    buffer.begin(std::span(&MIDIReceiveBuffer::kSysExStart, 1));
  }
  _is_message_received_finish_ios13 = false;
  buffer.append(kept, length);
}
