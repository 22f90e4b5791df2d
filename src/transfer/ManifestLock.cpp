// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/ManifestLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "transfer/ManifestFolder.h"

ManifestLock::ManifestLock(const std::filesystem::path& folder)
    : _manifests(folder / ManifestFolder::kName) {
  std::error_code error;
  std::filesystem::create_directories(_manifests, error);
  _folder = open(_manifests.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (_folder < 0) return;
  struct stat status {};
  const bool isLocked = flock(_folder, LOCK_EX | LOCK_NB) == 0;
  _isElsewhere = !isLocked && errno == EWOULDBLOCK;
  // Whoever had it may have taken the folder away between the two.
  if (isLocked && fstat(_folder, &status) == 0 && status.st_nlink == 0) _isElsewhere = true;
}

ManifestLock::~ManifestLock() {
  if (_folder < 0) return;
  if (!_isElsewhere) rmdir(_manifests.c_str());
  close(_folder);
}
