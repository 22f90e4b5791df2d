// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Writes settings on a thread of its own, in the order in which they were given, for one who must
/// not wait for the medium. Of a key that has yet to be written the newest value alone is, so that
/// nothing grows where the medium hangs.
///
/// There is one object, which outlives every thread. Any thread.
class SettingsWriter {
 public:
  static SettingsWriter& get();

  SettingsWriter(const SettingsWriter&) = delete;
  SettingsWriter& operator=(const SettingsWriter&) = delete;

  /// Returns at once. What cannot be written is logged. `file` is that of the settings.
  void store(const std::filesystem::path& file, std::string key, std::string value);
  /// What was stored for the key and has yet to be written.
  [[nodiscard]] std::optional<std::string> pending(const std::filesystem::path& file,
                                                   std::string_view key) const;
  /// Until all is written or given up, but no longer than this; false where something still waits.
  bool flush(std::chrono::milliseconds most);

 private:
  struct Entry {
    std::filesystem::path file;
    std::string key;
    std::string value;
  };

  SettingsWriter() = default;
  bool start();
  void work();
  static void write(const Entry& entry);

  mutable std::mutex _mutex;  ///< guards all that follows
  std::condition_variable _wanted;
  std::condition_variable _written;
  std::vector<Entry> _waiting;     ///< oldest first
  std::optional<Entry> _underWay;  ///< being written
  bool _isStarted = false;
};
