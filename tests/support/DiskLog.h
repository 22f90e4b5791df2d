// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// One call that changes what a disk holds, what it may forget, or what is read from it. Files are
/// known by their inode, names stand without their folder.
struct DiskCall {
  /// Drop: the system is asked to forget what it holds of the whole file, so that it is read from
  /// the disk; of what was not synced it forgets nothing.
  enum class Kind : std::uint32_t { Open, Close, Write, Sync, Drop, Name, Rename, Remove };

  Kind kind = Kind::Open;
  std::uint64_t file = 0;
  std::uint64_t offset = 0;        ///< of a Write
  std::string name{};              ///< that a file got, lost, or had before a Rename
  std::string newName{};           ///< of a Rename
  std::vector<std::byte> bytes{};  ///< of a Write
};

/// Writes down the calls that succeed, of this process and the children it forks. A shared library
/// that stands before the C library; one log at a time.
class DiskLog {
 public:
  static void start();
  static std::vector<DiskCall> stop();
  /// The next syncs of folders fail, with or without a log.
  static void failFolderSyncs(int error, int times);
};
