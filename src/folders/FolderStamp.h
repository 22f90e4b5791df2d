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

  /// Whether the folder has no other entries than at `before`, as far as its times tell: nothing
  /// was made, removed or renamed in it. What an entry is a link to may have changed all the same.
  /// False where the times do not tell: when the last change lay 3 s or less before `before`, since
  /// they are as coarse as two seconds on some media, on file systems that are not known to keep
  /// them, and for a folder without a time, as the topmost one of FAT. False too when its rights
  /// changed.
  [[nodiscard]] bool provesUnchangedSince(const FolderStamp& before) const;

  /// Whether a file system with this magic number keeps the time of each change in a folder. Those
  /// of networks and of user space may keep none or an old one, and so may any that has no name
  /// here.
  [[nodiscard]] static bool keepsFolderTimes(std::uint64_t magic);

 private:
  bool _isTelling = false;
  std::uint64_t _device = 0;
  std::uint64_t _inode = 0;
  std::int64_t _changed = 0;  ///< nanoseconds
  std::int64_t _rightsChanged = 0;
  std::int64_t _taken = 0;
};
