// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "transfer/TakeCopy.h"

/// What is in a folder and below it, in the order of the names. Hidden files and folders are left
/// out, links are not followed.
struct FolderFiles {
  enum class Which { Takes, All };  ///< takes are those that end in ".wav", in letters of any size

  /// Waits for the medium.
  static FolderFiles of(const std::filesystem::path& folder, Which which);

  std::vector<CardTake> files;
  std::string failure;  ///< why not all of it could be listed; empty where it was
};
