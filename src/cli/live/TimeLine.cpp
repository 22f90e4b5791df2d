// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/TimeLine.h"

#include <fmt/format.h>

#include <vector>

namespace {

constexpr std::size_t kLeastName = 8;

// The characters of a text in UTF-8, each with what combines with it or not: close enough for a
// name on a line.
std::vector<std::string_view> charactersOf(std::string_view text) {
  std::vector<std::string_view> characters;
  for (std::size_t i = 0; i < text.size();) {
    std::size_t end = i + 1;
    while (end < text.size() && (text[end] & 0xC0) == 0x80) ++end;
    characters.push_back(text.substr(i, end - i));
    i = end;
  }
  return characters;
}

// Scripts whose characters take two columns begin at U+1100, which takes three bytes.
std::size_t columnsOf(std::string_view character) {
  return character.size() > 2 ? 2 : 1;
}

std::size_t columnsOf(const std::vector<std::string_view>& characters) {
  std::size_t columns = 0;
  for (const std::string_view character : characters) columns += columnsOf(character);
  return columns;
}

// As many characters from the front as fit.
std::string front(const std::vector<std::string_view>& characters, std::size_t columns) {
  std::string text;
  for (const std::string_view character : characters) {
    if (columnsOf(character) > columns) break;
    columns -= columnsOf(character);
    text += character;
  }
  return text;
}

std::string back(const std::vector<std::string_view>& characters, std::size_t columns) {
  std::string text;
  for (std::size_t i = characters.size(); i-- > 0;) {
    if (columnsOf(characters[i]) > columns) break;
    columns -= columnsOf(characters[i]);
    text.insert(0, characters[i]);
  }
  return text;
}

// Empty where too little of the name would be left.
std::string cutInTheMiddle(std::string_view name, std::size_t columns) {
  const std::vector<std::string_view> characters = charactersOf(name);
  if (columnsOf(characters) <= columns) return std::string(name);
  if (columns < kLeastName) return "";
  const std::size_t rest = columns - 3;
  return front(characters, rest - rest / 2) + "..." + back(characters, rest / 2);
}

}  // namespace

std::string TimeLine::of(const State& state, std::size_t columns) {
  const std::string times = fmt::format("{} / {}", state.time, state.duration);
  const char* const paused = state.isPaused ? "  paused" : "";
  const std::string told =
      fmt::format("{}  width {}  gain {:+} dB{}", times, state.width, state.gain, paused);
  if (told.size() <= columns) {
    const std::size_t rest = columns - told.size();
    const std::string name = rest > 2 ? cutInTheMiddle(state.name, rest - 2) : "";
    return name.empty() ? told : name + "  " + told;
  }
  const std::string numbers =
      fmt::format("{}  {}  {:+} dB{}", times, state.width, state.gain, paused);
  return numbers.substr(0, columns);
}
