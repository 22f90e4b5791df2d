// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIPacketListBuffer.h"

#include <algorithm>

void MIDIPacketListBuffer::clear() {
  _bytes.fill(0);
  _used = kListHeader;
  _packets.clear();
}

bool MIDIPacketListBuffer::add(std::uint64_t timeStamp, std::span<const std::uint8_t> bytes) {
  const std::size_t needed = (kPacketHeader + bytes.size() + 3) / 4 * 4;
  if (needed > kCapacity - _used) return false;
  const std::span room = std::span(_bytes).subspan(_used + kPacketHeader, bytes.size());
  std::ranges::copy(bytes, room.begin());
  _packets.push_back({timeStamp, room});
  _used += needed;
  return true;
}
