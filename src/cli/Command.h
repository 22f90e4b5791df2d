// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

/// One word of the command line: its options and what it does. Used on the main thread.
class Command {
 public:
  /// Exit statuses of the program.
  static constexpr int kDone = 0;
  static constexpr int kFailed = 1;
  static constexpr int kUsage = 2;

  Command() = default;
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  virtual ~Command() = default;

  /// Adds the subcommand with its options to `program` and returns it.
  virtual CLI::App* declare(CLI::App& program) = 0;
  /// Does the work after the options have been parsed; returns an exit status.
  virtual int run() = 0;
};
