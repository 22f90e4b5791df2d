// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/SettingsText.h"

/// The file that keeps the settings of one user.
///
/// It is replaced whole, through a temporary file beside it and a rename, so a kill at any moment
/// leaves the old one or the new one. A change reads the file afresh under a lock, so several
/// running programs keep each other's keys. A damaged, empty or unreadable file is set aside under
/// the name with ".damaged" added and counts as absent. A lock that another program holds for more
/// than half a second is not waited for any longer.
///
/// Nothing throws. Any thread; each call stands for itself.
class SettingsFile {
 public:
  explicit SettingsFile(std::filesystem::path path);

  /// "mixdeck/settings" under $XDG_CONFIG_HOME, else under ~/.config.
  static std::filesystem::path defaultPath();

  [[nodiscard]] std::optional<std::string> get(const std::string& key) const;
  /// False where the file could not be written.
  [[nodiscard]] bool set(const std::string& key, const std::string& value) const;

 private:
  [[nodiscard]] std::optional<SettingsText::Values> load() const;
  [[nodiscard]] SettingsText::Values loadOrSetAside() const;
  [[nodiscard]] bool save(const SettingsText::Values& values) const;

  std::filesystem::path _path;
};
