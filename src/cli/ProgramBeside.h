// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Other programs of ours, which stand beside this one, or where an installation puts them.
class ProgramBeside {
 public:
  /// Where the program of this name is, wherever this one is.
  static std::string path(const char* name);
};
