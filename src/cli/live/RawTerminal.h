// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <termios.h>

/// Standard input as single keys without echo, when it is a terminal in front of a user; otherwise
/// nothing. The terminal's settings come back at the end of the object, and before any signal ends
/// or stops the program: Ctrl-C and Ctrl-\, a kill, Ctrl-Z (after which they are taken again).
/// At most one at a time; main thread.
class RawTerminal {
 public:
  RawTerminal();
  RawTerminal(const RawTerminal&) = delete;
  RawTerminal& operator=(const RawTerminal&) = delete;
  ~RawTerminal();

  [[nodiscard]] bool isActive() const { return _isActive; }

 private:
  bool _isActive = false;
};
