// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <filesystem>
#include <optional>

/// Addresses of files, as desktops hand them over ("file:///home/…"). Names keep their bytes, be
/// they no UTF-8. Any thread.
class FileAddress {
 public:
  /// Of an absolute path.
  static QString of(const std::filesystem::path& file);
  /// None where it is no address, or one of something elsewhere.
  static std::optional<std::filesystem::path> pathOf(const QString& address);
};
