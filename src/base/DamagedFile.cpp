// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "base/DamagedFile.h"

#include <string>
#include <system_error>

namespace fs = std::filesystem;

namespace {

fs::path with(const fs::path& path, const std::string& ending) {
  fs::path result = path;
  return result += ending;
}

bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

bool rename(const fs::path& from, const fs::path& to, DamagedFile::Endings beside) {
  std::error_code error;
  fs::rename(from, to, error);
  for (const char* const ending : beside) {
    std::error_code none;
    if (!error) fs::rename(with(from, ending), with(to, ending), none);
  }
  return !error;
}

fs::path freeName(const fs::path& place) {
  int next = 2;
  while (isThere(with(place, "-" + std::to_string(next)))) ++next;
  return with(place, "-" + std::to_string(next));
}

}  // namespace

fs::path DamagedFile::placeOf(const fs::path& file) {
  return with(file, ".damaged");
}

bool DamagedFile::setAside(const fs::path& file, Endings beside) {
  if (!isThere(file)) return false;
  const fs::path place = placeOf(file);
  if (isThere(place) && !rename(place, freeName(place), beside)) return false;
  return rename(file, place, beside);
}
