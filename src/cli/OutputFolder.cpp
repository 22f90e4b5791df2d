// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/OutputFolder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace fs = std::filesystem;

std::string OutputFolder::make(const fs::path& folder) {
  std::error_code error;
  if (!fs::is_directory(folder, error)) fs::create_directories(folder, error);
  return error ? error.message() : whyNot(folder);
}

std::string OutputFolder::whyNot(const fs::path& folder) {
  const fs::path there = standing(folder);
  std::error_code error;
  const bool isFolder = fs::is_directory(there, error);
  if (!error && !isFolder) return std::generic_category().message(ENOTDIR);
  const bool isFine = faccessat(AT_FDCWD, there.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
  return isFine ? std::string() : std::generic_category().message(errno);
}

fs::path OutputFolder::standing(const fs::path& folder) {
  std::error_code error;
  fs::path there = folder;
  while (there.has_relative_path() && !fs::exists(fs::symlink_status(there, error))) {
    there = there.has_parent_path() ? there.parent_path() : fs::path(".");
    if (there == ".") break;
  }
  return there.empty() ? fs::path(".") : there;
}
