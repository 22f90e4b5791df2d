// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>

/// What tells, without listing it, that a folder has the entries that it had. Any thread.
class FolderStamp {
 public:
  /// Tells nothing.
  FolderStamp() = default;
  /// Of the folder now.
  explicit FolderStamp(const std::filesystem::path& folder);

  /// Whether the folder has surely not changed between `before` and this. False where it cannot be
  /// told: right after a change, since times are as coarse as two seconds on some media, and on
  /// file systems that do not keep the time of a folder, as over a network.
  [[nodiscard]] bool provesUnchangedSince(const FolderStamp& before) const;

 private:
  bool _isTelling = false;
  std::uint64_t _device = 0;
  std::uint64_t _inode = 0;
  std::int64_t _changed = 0;  ///< nanoseconds
  std::int64_t _rightsChanged = 0;
  std::int64_t _taken = 0;
};
