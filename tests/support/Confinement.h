// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

/// A forked child in a world that is smaller or more broken than the test's own. The operations
/// below `run` are for the work inside the child: what they take away does not come back,
/// unless it says so.
class Confinement {
 public:
  /// Forks, runs `work` in the child and returns its result (0 to 255), or 1000 plus the signal
  /// that ended the child. An exception in the child gives 255, a failed fork -1.
  static int run(const std::function<int()>& work);

  /// Becomes the user 65534, who owns nothing. True at once for anyone but root.
  static bool dropPrivileges();
  /// Root becomes a user who owns nothing and is in this group beside their own.
  static bool becomeMemberOf(unsigned group);
  /// No file may grow past `bytes`, until more are allowed; a write past it is an error, not a
  /// signal.
  static bool limitFileSize(std::uint64_t bytes);
  /// A memory file system of this size on `folder`, seen by the child alone.
  static bool mountSmallDisk(const std::filesystem::path& folder, std::uint64_t bytes);
  /// Files without a name cannot be made any more, as on FAT.
  static bool refuseUnnamedFiles();
  /// The system call fails with `error` from now on.
  static bool failSystemCall(long number, int error);
  /// The same for every call that renames.
  static bool failRenames(int error);
  /// No thread can be had, until `allowThreads`. Root becomes the user 65534 for it.
  static bool refuseThreads();
  static bool allowThreads();
};
