// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>

/// Keeps others away from the manifests of a folder, in this process and in others, for as long as
/// it is there: a copy everybody, a check copies. One thread at a time; waits for the medium.
///
/// Some file systems know no locks, or may not be written to: nobody is kept away there.
class ManifestLock {
 public:
  enum class Kind { Copy, Check };
  /// Who has it already, so that this one has not.
  enum class Other { Nobody, Copy, Check };

  static constexpr std::chrono::milliseconds kPatience{2000};

  /// A copy makes the folder of the manifests where it is missing, and waits for checks, but no
  /// longer than the patience. For a copy nobody waits.
  ManifestLock(const std::filesystem::path& folder, Kind kind,
               std::chrono::milliseconds patience = kPatience);
  ManifestLock(const ManifestLock&) = delete;
  ManifestLock& operator=(const ManifestLock&) = delete;
  /// After a copy the folder of the manifests goes where nothing came into it.
  ~ManifestLock();

  [[nodiscard]] Other other() const { return _other; }

 private:
  void lookAmongChecks();
  void waitAlone(std::chrono::milliseconds patience);
  [[nodiscard]] Other tryAlone() const;
  [[nodiscard]] Other tryAmongChecks() const;

  std::filesystem::path _manifests;
  Kind _kind;
  int _folder = -1;
  Other _other = Other::Nobody;
};
