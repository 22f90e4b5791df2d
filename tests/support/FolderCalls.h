// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

/// Counts, thread by thread, the calls that list or look at what lies in a folder. A shared library
/// that stands before the C library. Any thread.
class FolderCalls {
 public:
  struct Counts {
    std::size_t looks = 0;     ///< at a file or folder, or the file system it lies on
    std::size_t listings = 0;  ///< that were begun, by `opendir`

    bool operator==(const Counts&) const = default;
  };

  /// From now on this folder and what is in it, named by paths that begin so.
  static void watch(const std::string& folder);
  /// The calls of this thread so far.
  static Counts here();
};
