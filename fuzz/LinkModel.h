// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "FuzzInput.h"
#include "midi/MIDIReceiveBuffer.h"

using Message = std::vector<std::uint8_t>;

/// That many values off the front of an input.
template <class Value>
std::vector<Value> takeMany(FuzzInput& input, std::size_t count) {
  std::vector<Value> values(count);
  for (Value& value : values) value = input.take<Value>();
  return values;
}

/// The message that is being put together, as plainly as can be.
struct PlainMessage {
  Message bytes = {0xF0};

  /// True where a message of this size is delivered; a longer one is forgotten.
  bool close() {
    if (bytes.size() <= MIDIReceiveBuffer::kCapacity) return true;
    bytes = {0xF0};
    return false;
  }
  /// The buffer holds the same, and no more than it may.
  void requireSame(const MIDIReceiveBuffer& buffer) const {
    require(buffer.count() <= MIDIReceiveBuffer::kCapacity, "a message fits the buffer");
    require(buffer.count() == bytes.size(), "the length is right");
    require(std::equal(bytes.begin(), bytes.end(), buffer.bytes()), "the bytes are right");
    require(bytes[0] == 0xF0, "a message begins with F0");
  }
};
