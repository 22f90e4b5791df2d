// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/FolderSync.h"

#include <fcntl.h>
#include <unistd.h>

#include <vector>

namespace fs = std::filesystem;

void FolderSync::of(const fs::path& folder) {
  const int file = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return;
  fsync(file);
  close(file);
}

// The first of those that are there may have been made just before a break: its name, too.
std::error_code FolderSync::make(const fs::path& folder) {
  std::error_code error;
  std::vector<fs::path> parents;
  const fs::path whole = fs::absolute(folder, error).lexically_normal();
  for (fs::path path = whole; !error && path.has_relative_path(); path = path.parent_path()) {
    parents.push_back(path.parent_path());
    if (fs::exists(path, error)) break;
  }
  fs::create_directories(folder, error);
  if (error) return error;
  for (const fs::path& parent : parents) of(parent);
  return error;
}
