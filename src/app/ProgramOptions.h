// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

/// What the command line asks for.
struct ProgramOptions {
  std::filesystem::path start;  ///< a folder or a recording; empty: neither
  bool simulatesRecorder = false;
  bool showsLog = false;
  std::string language;       ///< one of `Language::all`; empty: the desktop's
  std::optional<int> status;  ///< set when the program is already done, with this exit status

  /// Prints help, version and complaints.
  static ProgramOptions parse(int argc, const char* const* argv);
};
