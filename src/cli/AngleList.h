// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

/// Stereo widths as the command line gives them: "all", or whole degrees with commas between them.
class AngleList {
 public:
  /// Widths in the order of the text; empty where it is no list of widths from 0 to 150.
  static std::vector<int> parse(const std::string& text);

  /// Accepts what `parse` can read.
  static CLI::Validator check();
};
