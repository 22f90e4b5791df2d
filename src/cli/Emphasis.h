// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Colours for what went wrong, where standard error is a terminal that shows them and nobody has
/// set NO_COLOR. Nothing throws; safe on any thread.
class Emphasis {
 public:
  enum class Kind { Failure, Warning };

  /// The text, in the colour of its kind where colours are wanted.
  static std::string of(std::string_view text, Kind kind);
  /// The same, where it is known whether they are.
  static std::string of(std::string_view text, Kind kind, bool isWanted);
  /// Whether they are wanted of a program with these variables (null: not set).
  static bool isWanted(bool isTerminal, const char* noColor, const char* terminal);
};
