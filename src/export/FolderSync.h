// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <system_error>

/// Folders whose names are still there after a power cut. Any thread; waits for the medium.
class FolderSync {
 public:
  /// Has the names in the folder on the disk; that of an empty path is the one that is worked in.
  /// No error where the file system knows no such thing, or the folder may not be read.
  static std::error_code of(const std::filesystem::path& folder);
  /// Makes the folder and what is missing above it, and has their names on the disk.
  static std::error_code make(const std::filesystem::path& folder);
};
