// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// What the command line asks for.
struct ProgramOptions {
  std::vector<std::filesystem::path> starts;  ///< folders and recordings, may be none
  bool simulatesRecorder = false;
  bool showsLog = false;
  std::string language;       ///< one of `Language::all`; empty: the desktop's
  std::optional<int> status;  ///< set when the program is already done, with this exit status

  /// Whether this start says something of the program itself, which one that runs cannot take up.
  [[nodiscard]] bool isForItself() const { return simulatesRecorder || showsLog; }

  /// Prints help, version and complaints.
  static ProgramOptions parse(int argc, const char* const* argv);
};
