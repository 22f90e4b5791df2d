// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Printable.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "wav/Utf8.h"

namespace {

using Bytes = std::span<const std::uint8_t>;

// How long the character is that begins here; 0 where these bytes are no UTF-8.
std::size_t lengthOfFirst(Bytes bytes) {
  constexpr std::size_t kLongest = 4;
  for (std::size_t length = 1; length <= std::min(kLongest, bytes.size()); ++length) {
    if (Utf8::isValid(bytes.first(length))) return length;
  }
  return 0;
}

// U+0080 to U+009F, which some terminals obey too, are 0xC2 and one of 0x80 to 0x9F in UTF-8.
bool isControl(Bytes character) {
  if (character.size() == 1) return character[0] < 0x20 || character[0] == 0x7F;
  return character.size() == 2 && character[0] == 0xC2 && character[1] < 0xA0;
}

std::string escaped(std::uint8_t byte) {
  if (byte == '\r') return "\\r";
  if (byte == '\n') return "\\n";
  return fmt::format("\\x{:02x}", byte);
}

}  // namespace

// A byte that is no UTF-8 may be a control to a terminal of another encoding.
std::string printable(std::string_view text) {
  const std::vector<std::uint8_t> bytes(text.begin(), text.end());
  std::string result;
  for (std::size_t i = 0; i < bytes.size();) {
    const Bytes rest = Bytes(bytes).subspan(i);
    const std::size_t length = lengthOfFirst(rest);
    const Bytes character = rest.first(std::max<std::size_t>(length, 1));
    if (length == 0 || isControl(character)) {
      result += escaped(character.back());
    } else {
      result += text.substr(i, length);
    }
    i += character.size();
  }
  return result;
}
