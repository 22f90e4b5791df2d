// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <initializer_list>

/// What becomes of a file of the program's own that is damaged. Nothing throws but where memory
/// runs out; stateless. Waits for the medium; any thread, one at a time for one file.
class DamagedFile {
 public:
  using Endings = std::initializer_list<const char*>;

  /// Where it goes: the name with ".damaged" added.
  static std::filesystem::path placeOf(const std::filesystem::path& file);
  /// Renames it to that, and with it what is beside it under its name and one of the endings. One
  /// that was there before stays, under the first free of ".damaged-2", ".damaged-3" and so on.
  /// False where the file is not there or cannot be renamed: it stays then.
  static bool setAside(const std::filesystem::path& file, Endings beside = {});
};
