// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>

/// Keeps programs that use a file apart from one that takes it away, by a lock beside the file.
/// One thread.
class UseLock {
 public:
  enum class Kind { Shared, Alone };

  /// Waits for it, but no longer than the patience. Where no lock can be had at all, as on a medium
  /// that cannot be written to, there is none.
  UseLock(const std::filesystem::path& file, Kind kind, std::chrono::milliseconds patience);
  UseLock(const UseLock&) = delete;
  UseLock& operator=(const UseLock&) = delete;
  ~UseLock();

  [[nodiscard]] bool isHeld() const { return _isHeld; }

 private:
  int _descriptor;
  bool _isHeld = false;
};
