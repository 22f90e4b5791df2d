// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Emphasis.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdlib>

namespace {

constexpr int kRed = 31;
constexpr int kYellow = 33;

}  // namespace

std::string Emphasis::of(std::string_view text, Kind kind) {
  static const bool kIsWanted =
      isWanted(isatty(STDERR_FILENO) == 1, std::getenv("NO_COLOR"), std::getenv("TERM"));
  return of(text, kind, kIsWanted);
}

std::string Emphasis::of(std::string_view text, Kind kind, bool isWanted) {
  if (!isWanted) return std::string(text);
  return fmt::format("\x1b[1;{}m{}\x1b[0m", kind == Kind::Warning ? kYellow : kRed, text);
}

bool Emphasis::isWanted(bool isTerminal, const char* noColor, const char* terminal) {
  const std::string_view refusal = noColor == nullptr ? "" : noColor;
  const std::string_view name = terminal == nullptr ? "" : terminal;
  return isTerminal && refusal.empty() && !name.empty() && name != "dumb";
}
