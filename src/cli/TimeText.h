// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <string_view>

/// Times as they are written on the command line and shown.
class TimeText {
 public:
  /// Seconds of "12.5", "1:23.5" or "1:02:03": minutes and seconds after a colon are below 60. None
  /// where it is no time from 0 to `kMostSeconds`.
  static std::optional<double> parse(std::string_view text);
  /// "HH:MM:SS.mmm".
  static std::string of(double seconds);
  /// Accepts what `parse` can read, and makes seconds of it.
  static CLI::Validator check();
};
