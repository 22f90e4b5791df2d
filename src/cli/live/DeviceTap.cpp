// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/DeviceTap.h"

#include <utility>

#include "midi/MIDICommon.h"
#include "midi/MIDIReceiveBuffer.h"
#include "midi/MIDIWireEvents.h"

namespace {

constexpr std::uint8_t kSysExStart = MIDIReceiveBuffer::kSysExStart;
constexpr std::uint8_t kSysExEnd = MIDIReceiveBuffer::kSysExEnd;

DeviceTap::Bytes shortMessage(std::uint32_t word) {
  const auto byte = [word](int shift) { return static_cast<std::uint8_t>(word >> shift); };
  const DeviceTap::Bytes bytes = {byte(16), byte(8), byte(0)};
  // What a shorter message leaves of the word is no message of its own.
  const auto pieces = MIDIWireReader().feed(bytes);
  return pieces.empty() ? DeviceTap::Bytes() : pieces.front();
}

bool isSysEx(const DeviceTap::Bytes& piece) {
  return piece.front() == kSysExStart || piece.front() < 0x80 || piece.front() == kSysExEnd;
}

}  // namespace

std::vector<DeviceTap::Bytes> DeviceTap::Joiner::feed(std::span<const std::uint8_t> bytes) {
  std::vector<Bytes> messages;
  for (Bytes& piece : _reader.feed(bytes)) {
    if (!isSysEx(piece)) {
      messages.push_back(std::move(piece));
      continue;
    }
    if (piece.front() == kSysExStart) _open.clear();
    _open.insert(_open.end(), piece.begin(), piece.end());
    const bool isWhole = _open.back() == kSysExEnd || _open.size() >= kMost;
    if (isWhole) messages.push_back(std::exchange(_open, {}));
  }
  return messages;
}

std::vector<DeviceTap::Bytes> DeviceTap::Joiner::feed(const MIDIEventPacket& packet) {
  const auto words = packet.words;
  if (words.empty()) return {};
  const std::uint8_t type = MIDICommon::messageType(words[0]);
  if (type == MIDICommon::kSysExType) return feed(MIDIWireEvents::bytesOf(words));
  std::vector<Bytes> messages;
  const bool isShort = type == MIDICommon::kSystemType || type == MIDICommon::kChannelType;
  if (isShort) messages.push_back(shortMessage(words[0]));
  std::erase(messages, Bytes());
  return messages;
}

DeviceTap::DeviceTap(std::shared_ptr<MIDISystem> system) : _system(std::move(system)) {}

MIDIObjectRef DeviceTap::createClient(std::string_view name, MIDISystemClient& client) {
  _client = &client;
  return _system->createClient(name, *this);
}

void DeviceTap::send(MIDIObjectRef port, MIDIObjectRef destination, MIDIPacketList packets) {
  for (const MIDIPacket& packet : packets) show(Way::Sent, _sent.feed(packet.bytes));
  _system->send(port, destination, packets);
}

void DeviceTap::send(MIDIObjectRef port, MIDIObjectRef destination, MIDIEventList events) {
  for (const MIDIEventPacket& event : events) show(Way::Sent, _sent.feed(event));
  _system->send(port, destination, events);
}

void DeviceTap::received(MIDIPacketList packets) {
  for (const MIDIPacket& packet : packets) show(Way::Received, _received.feed(packet.bytes));
  _client->received(packets);
}

void DeviceTap::received(MIDIEventList events) {
  for (const MIDIEventPacket& event : events) show(Way::Received, _received.feed(event));
  _client->received(events);
}

void DeviceTap::show(Way way, const std::vector<Bytes>& messages) const {
  for (const Bytes& message : messages) {
    if (_show) _show(way, message);
  }
}
