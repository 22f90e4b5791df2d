// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <string>

/// What the words of a program are, for whoever makes a manual page or completions of them: the one
/// source of those and of `--help` is what the program has declared.
///
/// `PROGRAM --help-json`, and nothing else on the line, is how they are asked for. Nothing throws
/// but for want of memory; safe on any thread.
class ProgramWords {
 public:
  /// Whether the command line asks for them.
  static bool areAskedFor(int argc, const char* const* argv);
  /// One JSON object in a line: name, version, description, footer, options and commands, and those
  /// of each command in turn.
  static std::string json(const CLI::App& program, const std::string& version);
};
