// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <filesystem>

/// Paths as people read and type them, in which bytes that are no UTF-8 are lost. Touches no file.
/// Any thread.
class PathText {
 public:
  static QString textOf(const std::filesystem::path& path);
  /// Of what is at the path, without the folders that lead there.
  static QString nameOf(const std::filesystem::path& path) { return textOf(path.filename()); }
  static std::filesystem::path bytesOf(const QString& text);
  /// What is typed while `folder` is shown: absolute, without "." and "..". "~" is the home folder.
  static std::filesystem::path within(const std::filesystem::path& folder, const QString& typed);
};
