// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>

/// What tells one state of a file from the next. Plain data.
struct FileTime {
  static constexpr std::int64_t kSecond = 1'000'000'000;

  bool isThere = false;
  std::uint64_t size = 0;
  std::int64_t modified = 0;  ///< nanoseconds

  /// Waits for the medium. Any thread.
  static FileTime of(const std::filesystem::path& file);
};
