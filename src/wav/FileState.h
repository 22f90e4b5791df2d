// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// Which file was opened, and what it was like then: what was found out of one holds of another as
/// long as they are alike. All 0 for what is in memory. Plain data.
struct FileState {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;     ///< bytes
  std::int64_t modified = 0;  ///< nanoseconds

  friend bool operator==(const FileState&, const FileState&) = default;
};
