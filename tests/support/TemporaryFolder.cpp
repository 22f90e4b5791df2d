// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/TemporaryFolder.h"

#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::string name = (fs::temp_directory_path() / "mixdeck-test-XXXXXX").native();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder: " + name);
  _path = name;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  fs::remove_all(_path, error);
}

fs::path TemporaryFolder::file(const std::string& name, const std::vector<std::byte>& bytes) const {
  const fs::path path = _path / name;
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::streamsize>(bytes.size()));
  if (!out.flush()) throw std::runtime_error("cannot write " + path.native());
  return path;
}

std::vector<std::string> TemporaryFolder::names() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(_path)) {
    names.push_back(entry.path().filename().native());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::byte> TemporaryFolder::read(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path.native());
  std::vector<std::byte> bytes(fs::file_size(path));
  in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (!in) throw std::runtime_error("cannot read all of " + path.native());
  return bytes;
}
