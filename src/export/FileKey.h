// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// Tells whether two names are those of one file, of files that are there and of those to come.
class FileKey {
 public:
  /// One text for one file, whatever the way to it through links. The last name counts without the
  /// case of its letters A to Z: cards and many shares ignore it, which cannot be told of every one
  /// before it is written to. Waits for the medium. Stateless; any thread.
  static std::filesystem::path of(const std::filesystem::path& path);
};
