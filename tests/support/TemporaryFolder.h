// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

/// A folder of its own for one test, gone with everything in it in the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return _path; }
  /// Writes a file into the folder and returns its path.
  std::filesystem::path file(const std::string& name, const std::vector<std::byte>& bytes) const;
  /// Names of all that is in the folder, hidden ones too, sorted.
  [[nodiscard]] std::vector<std::string> names() const;

  static std::vector<std::byte> read(const std::filesystem::path& path);

 private:
  std::filesystem::path _path;
};
