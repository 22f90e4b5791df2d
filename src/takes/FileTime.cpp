// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/FileTime.h"

#include <sys/stat.h>

FileTime FileTime::of(const std::filesystem::path& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return {};
  return {true, static_cast<std::uint64_t>(status.st_size),
          status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec};
}
