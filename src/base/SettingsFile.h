// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "base/SettingsText.h"

/// The file that keeps the settings of one user.
///
/// It is replaced whole, through a temporary file beside it and a rename, so a kill or a power cut
/// at any moment leaves the old one or the new one; a "settings.part-*" file that a kill leaves
/// beside it goes with the next change. A change reads the file afresh under a lock, so several
/// running programs keep each other's keys. A damaged, empty or unreadable file counts as absent,
/// and the next change sets it aside (`DamagedFile`). A lock that another program holds is not
/// waited for any longer than `Patience`: the change is then made without it.
///
/// Nothing throws but where memory runs out. Any thread; each call stands for itself.
class SettingsFile {
 public:
  /// How long a change waits for the lock.
  struct Patience {
    std::chrono::milliseconds unsaved{500};  ///< while nobody saves: its holder hangs
    std::chrono::milliseconds most{3000};    ///< in any case
  };

  explicit SettingsFile(std::filesystem::path path) : SettingsFile(std::move(path), Patience{}) {}
  SettingsFile(std::filesystem::path path, Patience patience);

  /// "mixdeck/settings" under $XDG_CONFIG_HOME, else under ~/.config.
  static std::filesystem::path defaultPath();

  /// Changes nothing and waits for no lock.
  [[nodiscard]] std::optional<std::string> get(const std::string& key) const;
  /// False where the file could not be written.
  [[nodiscard]] bool set(const std::string& key, const std::string& value) const;

 private:
  [[nodiscard]] std::optional<SettingsText::Values> load() const;
  [[nodiscard]] SettingsText::Values loadOrSetAside() const;
  [[nodiscard]] bool save(const SettingsText::Values& values) const;

  std::filesystem::path _path;
  Patience _patience;
};
