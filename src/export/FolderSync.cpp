// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/FolderSync.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace fs = std::filesystem;

namespace {

bool isUnknownToFileSystem(int error) {
  return error == EINVAL || error == EBADF || error == EOPNOTSUPP || error == ENOSYS;
}

}  // namespace

std::error_code FolderSync::of(const fs::path& folder) {
  const char* const path = folder.empty() ? "." : folder.c_str();
  const int file = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return {errno == EACCES ? 0 : errno, std::generic_category()};
  const int error = fsync(file) == 0 || isUnknownToFileSystem(errno) ? 0 : errno;
  close(file);
  return {error, std::generic_category()};
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
  for (const fs::path& parent : parents) {
    error = of(parent);
    if (error && error != std::errc::read_only_file_system) return error;  // nothing was made there
  }
  return {};
}
