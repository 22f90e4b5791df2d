// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/simulator/RecorderState.h"

namespace {

using Bytes = RecorderMessages::Bytes;

template <class Values>
void append(Bytes& bytes, const Values& values) {
  for (const auto value : values) bytes.push_back(static_cast<std::uint8_t>(value));
}

/// Ten groups of seven bits, the lowest first.
std::array<std::uint8_t, 10> groups(std::uint64_t size) {
  std::array<std::uint8_t, 10> result{};
  for (std::uint8_t& group : result) {
    group = static_cast<std::uint8_t>(size & 0x7F);
    size >>= 7;
  }
  return result;
}

Bytes closed(Bytes bytes) {
  bytes.push_back(0xF7);
  return bytes;
}

}  // namespace

Bytes RecorderMessages::identity(const RecorderState& state) {
  Bytes bytes = {0xF0, 0x7E, 0x00, 0x06, 0x02};
  append(bytes, state.deviceId);
  append(bytes, state.identityVersion);
  bytes.push_back(0x00);
  return closed(bytes);
}

Bytes RecorderMessages::acknowledgement(std::uint8_t code) {
  return {0xF0, 0x52, 0x00, 0x00, 0x00, code, 0xF7};
}

Bytes RecorderMessages::version(const RecorderState& state) {
  Bytes bytes = {0xF0, 0x52, 0x00, 0x00, 0x11, 0x01};
  append(bytes, state.firmware);
  return closed(bytes);
}

Bytes RecorderMessages::card(const RecorderState& state) {
  Bytes bytes = {0xF0, 0x52, 0x00, 0x00, 0x67, 0x00, std::uint8_t{state.hasCard}};
  append(bytes, state.hasCard ? state.remaining : std::array<std::uint8_t, 3>{});
  append(bytes, groups(state.hasCard ? state.usedBytes : 0));
  append(bytes, groups(state.hasCard ? state.capacityBytes : 0));
  return closed(bytes);
}

Bytes RecorderMessages::setting(std::uint8_t which, std::uint8_t value) {
  return {0xF0, 0x52, 0x00, 0x00, 0x45, which, value, 0xF7};
}
