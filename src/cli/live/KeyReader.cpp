// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/KeyReader.h"

#include <array>
#include <optional>
#include <utility>

namespace {

using Sequence = std::pair<std::string_view, Key>;

// Arrow keys come with [ or, in the application mode that some programs leave behind, with O.
constexpr auto kSequences = std::to_array<Sequence>({{" ", Key::Space},
                                                     {"\x1b[D", Key::Left},
                                                     {"\x1bOD", Key::Left},
                                                     {"\x1b[C", Key::Right},
                                                     {"\x1bOC", Key::Right},
                                                     {"\x1b[A", Key::Up},
                                                     {"\x1bOA", Key::Up},
                                                     {"\x1b[B", Key::Down},
                                                     {"\x1bOB", Key::Down},
                                                     {"[", Key::Narrower},
                                                     {"]", Key::Wider},
                                                     {"q", Key::Quit},
                                                     {"Q", Key::Quit}});

std::optional<Key> keyOf(std::string_view bytes) {
  for (const auto& [sequence, key] : kSequences) {
    if (sequence == bytes) return key;
  }
  return std::nullopt;
}

// ESC, then [ or O, then parameters up to a letter.
bool isUnfinished(std::string_view bytes) {
  if (bytes == "\x1b") return true;
  if (!bytes.starts_with("\x1b[") && !bytes.starts_with("\x1bO")) return false;
  return bytes.size() == 2 || (bytes.back() >= 0x20 && bytes.back() < 0x40);
}

}  // namespace

std::vector<Key> KeyReader::read(std::string_view bytes) {
  std::vector<Key> keys;
  for (const char byte : bytes) {
    // Escape by itself, and then another key.
    if (_pending == "\x1b" && byte != '[' && byte != 'O') _pending.clear();
    _pending += byte;
    if (isUnfinished(_pending)) continue;
    if (const auto key = keyOf(_pending)) keys.push_back(*key);
    _pending.clear();
  }
  return keys;
}
