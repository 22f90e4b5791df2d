// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/SettingsText.h"

#include <array>
#include <utility>

namespace {

constexpr std::string_view kFirstLine = "mixdeck-settings 1";
constexpr auto kEscapes = std::to_array<std::pair<char, char>>(
    {{'\\', '\\'}, {'\n', 'n'}, {'\r', 'r'}, {'\0', '0'}, {'=', 'e'}});

std::string escaped(std::string_view text) {
  std::string result;
  for (const char character : text) {
    char letter = 0;
    for (const auto& [plain, code] : kEscapes) {
      if (plain == character) letter = code;
    }
    if (letter != 0) result += '\\';
    result += letter != 0 ? letter : character;
  }
  return result;
}

std::optional<char> plainOf(char letter) {
  for (const auto& [plain, code] : kEscapes) {
    if (code == letter) return plain;
  }
  return std::nullopt;
}

std::optional<std::string> unescaped(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\0' || text[i] == '\r' || text[i] == '=') return std::nullopt;
    if (text[i] != '\\') {
      result += text[i];
      continue;
    }
    const auto plain = ++i < text.size() ? plainOf(text[i]) : std::nullopt;
    if (!plain) return std::nullopt;
    result += *plain;
  }
  return result;
}

// Takes one line off the front; none where its line end is missing.
std::optional<std::string_view> takeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end + 1);
  return line;
}

bool readLine(std::string_view line, SettingsText::Values& values) {
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos) return false;
  const auto key = unescaped(line.substr(0, sign));
  const auto value = unescaped(line.substr(sign + 1));
  return key && value && values.emplace(*key, *value).second;
}

}  // namespace

std::string SettingsText::write(const Values& values) {
  std::string text = std::string(kFirstLine) + '\n';
  for (const auto& [key, value] : values) text += escaped(key) + '=' + escaped(value) + '\n';
  return text;
}

std::optional<SettingsText::Values> SettingsText::read(std::string_view text) {
  Values values;
  if (takeLine(text) != kFirstLine) return std::nullopt;
  while (!text.empty()) {
    const auto line = takeLine(text);
    if (!line || !readLine(*line, values)) return std::nullopt;
  }
  return values;
}
