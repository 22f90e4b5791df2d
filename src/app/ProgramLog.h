// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

/// Where the log lines of the program with the window go while this lives: to the system's log, and
/// where they are to be shown to the terminal as well. Made and gone on one thread; lines come from
/// any.
class ProgramLog {
 public:
  /// Takes one line, without its end.
  using Write = std::function<void(std::string_view line)>;

  explicit ProgramLog(bool isShown, Write system = toSystem, Write terminal = toTerminal);
  ProgramLog(const ProgramLog&) = delete;
  ProgramLog& operator=(const ProgramLog&) = delete;
  ~ProgramLog();

  static void toSystem(std::string_view line);
  static void toTerminal(std::string_view line);
};
