// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIReceiveBuffer.h"

#include <algorithm>

#include "base/Log.h"

void MIDIReceiveBuffer::begin(std::span<const std::uint8_t> bytes) {
  _bytes.fill(0);
  _count = 0;
  _isSpoilt = false;
  append(bytes);
}

void MIDIReceiveBuffer::append(std::span<const std::uint8_t> bytes, std::size_t advance) {
  if (_isSpoilt || advance > kCapacity - _count) {
    _isSpoilt = true;
    return;
  }
  std::ranges::copy(bytes, _bytes.begin() + _count);
  _count += static_cast<std::uint32_t>(advance);
}

void MIDIReceiveBuffer::replace(std::span<const std::uint8_t, 3> bytes, std::uint32_t count) {
  _bytes[0] = kSysExStart;
  std::ranges::copy(bytes, _bytes.begin() + 1);
  _count = count;
  _isSpoilt = false;
}

bool MIDIReceiveBuffer::dropIfSpoilt() {
  if (!_isSpoilt) return false;
  Log::line("A message of more than 20000 bytes was dropped");
  begin(std::span(&kSysExStart, 1));
  return true;
}
