// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/Utf8.h"

#include <algorithm>

#include "wav/WaveFileReader.h"

namespace {

// Bytes of a character that begins with this one; 0 where none does.
std::size_t lengthOf(std::uint8_t first) {
  if (first < 0x80) return 1;
  if (first < 0xC2) return 0;
  if (first < 0xE0) return 2;
  if (first < 0xF0) return 3;
  return first < 0xF5 ? 4 : 0;
}

// Not a longer form than is needed, no surrogate, nothing past the last character.
bool canFollow(std::uint8_t first, std::uint8_t second) {
  if (first == 0xE0) return second >= 0xA0;
  if (first == 0xED) return second < 0xA0;
  if (first == 0xF0) return second >= 0x90;
  return first != 0xF4 || second < 0x90;
}

bool isContinuation(std::uint8_t byte) {
  return (byte & 0xC0) == 0x80;
}

}  // namespace

bool Utf8::isValid(std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const std::size_t length = lengthOf(bytes[0]);
    if (length == 0 || length > bytes.size()) return false;
    if (!std::ranges::all_of(bytes.subspan(1, length - 1), isContinuation)) return false;
    if (length > 1 && !canFollow(bytes[0], bytes[1])) return false;
    bytes = bytes.subspan(length);
  }
  return true;
}

std::string Utf8::textOf(std::span<const std::uint8_t> field) {
  const auto end = std::ranges::find(field, 0);
  const auto used = field.first(static_cast<std::size_t>(end - field.begin()));
  if (!isValid(used)) return WaveFileReader::DecodeAsString(used.data(), used.size());
  return {used.begin(), used.end()};
}
