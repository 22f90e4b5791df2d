// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "transfer/TakeCopy.h"

/// What is in a folder and below it, in the order of the names. Hidden files and folders are left
/// out, links are not followed.
struct FolderFiles {
  enum class Which { Takes, All };
  /// Asked before each file and folder whether to go on.
  using GoOn = std::function<bool()>;

  /// What could not be listed: a folder with what is below it, or a file.
  struct Gap {
    std::filesystem::path path;  ///< from the folder on; empty for the folder itself
    std::string reason;

    /// Whether what has this path would not have been seen.
    [[nodiscard]] bool hides(const std::filesystem::path& file) const;
    /// Its whole path, in the folder that was listed.
    [[nodiscard]] std::filesystem::path in(const std::filesystem::path& folder) const;
  };

  /// Whether a file of this name is a take: one that ends in ".wav", in letters of any size.
  static bool isTake(const std::filesystem::path& file);
  /// Waits for the medium. What cannot be listed does not keep the rest from it.
  static FolderFiles of(
      const std::filesystem::path& folder, Which which, const GoOn& mayGoOn = [] { return true; });

  /// Whether what has this path would not have been seen.
  [[nodiscard]] bool mayHide(const std::filesystem::path& file) const;

  std::vector<CardTake> files;
  std::vector<Gap> gaps;
  bool isCutShort = false;  ///< it was not gone on with: there may be more
};
