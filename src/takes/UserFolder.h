// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// The folders that the XDG Base Directory rules give a user's program for what it keeps.
class UserFolder {
 public:
  /// "mixdeck" in what the environment variable names, else in this folder of the user's home.
  static std::filesystem::path of(const char* variable, const char* inHome);
};
