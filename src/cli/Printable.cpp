// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Printable.h"

#include <fmt/format.h>

namespace {

bool isControl(unsigned char byte) {
  return byte < 0x20 || byte == 0x7F;
}

// U+0080 to U+009F, which some terminals obey too, are 0xC2 and one of 0x80 to 0x9F in UTF-8.
bool isSecondControl(std::string_view text, std::size_t at) {
  return text[at] == '\xC2' && at + 1 < text.size() && (text[at + 1] & 0xE0) == 0x80;
}

std::string escaped(unsigned char byte) {
  if (byte == '\r') return "\\r";
  if (byte == '\n') return "\\n";
  return fmt::format("\\x{:02x}", byte);
}

}  // namespace

std::string printable(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (isSecondControl(text, i)) {
      result += escaped(static_cast<unsigned char>(text[++i]));
    } else if (isControl(byte)) {
      result += escaped(byte);
    } else {
      result += text[i];
    }
  }
  return result;
}
