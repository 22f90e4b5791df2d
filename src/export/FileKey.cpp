// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/FileKey.h"

#include <algorithm>
#include <string>
#include <system_error>

#include "export/AtomicFile.h"

namespace fs = std::filesystem;

namespace {

char small(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

fs::path FileKey::of(const fs::path& path) {
  std::error_code error;
  const fs::path known = fs::weakly_canonical(AtomicFile::resolveLinks(fs::absolute(path)), error);
  const fs::path& whole = error ? path : known;
  std::string name = whole.filename().native();
  std::ranges::transform(name, name.begin(), small);
  return whole.parent_path() / name;
}
