// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

/// The folder that files are written into, made where it is missing.
class OutputFolder {
 public:
  /// Makes the folder and those above it. Empty once files can be made in it, else why not.
  static std::string make(const std::filesystem::path& folder);
  /// What `make` would say, without making anything.
  static std::string whyNot(const std::filesystem::path& folder);
  /// The folder itself, or the nearest above it that is there.
  static std::filesystem::path standing(const std::filesystem::path& folder);
};
