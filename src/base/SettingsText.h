// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

/// The text form of the settings: a first line "mixdeck-settings 1", then one "key=value" a line,
/// each with its line end. Keys and values are any bytes; line ends, zero bytes, the equals sign
/// and the backslash are written as \n, \r, \0, \e and \\. Stateless; safe on any thread.
class SettingsText {
 public:
  using Values = std::map<std::string, std::string>;

  static std::string write(const Values& values);
  /// None where the text is not whole and well-formed, an empty text included.
  static std::optional<Values> read(std::string_view text);
};
