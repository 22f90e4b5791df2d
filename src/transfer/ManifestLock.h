// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

/// Keeps other copies away from the manifests of a folder, in this process and in others, for as
/// long as it is there. One thread at a time; waits for the medium.
///
/// Some file systems know no locks, or may not be written to: nobody is kept away there.
class ManifestLock {
 public:
  /// Makes the folder of the manifests, where it is missing.
  explicit ManifestLock(const std::filesystem::path& folder);
  ManifestLock(const ManifestLock&) = delete;
  ManifestLock& operator=(const ManifestLock&) = delete;
  /// The folder of the manifests goes where nothing came into it.
  ~ManifestLock();

  /// Whether another one has it.
  [[nodiscard]] bool isElsewhere() const { return _isElsewhere; }

 private:
  std::filesystem::path _manifests;
  int _folder = -1;
  bool _isElsewhere = false;
};
