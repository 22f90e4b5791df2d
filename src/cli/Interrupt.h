// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

/// Turns Ctrl-C and a polite kill into a flag that long work looks at.
class Interrupt {
 public:
  /// Takes over SIGINT, SIGTERM and SIGHUP; a second one ends the program at once. A write past a
  /// file-size limit or into a closed pipe becomes an ordinary error instead of a signal.
  static void install();
  /// True once a signal came; never false again.
  static const std::atomic<bool>& requested();
  /// What a shell calls the end by that signal: 128 and its number. 0 before one came.
  static int status();
};
