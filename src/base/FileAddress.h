// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// Files as programs of a desktop hand them to each other: as addresses (RFC 8089), in which paths
/// keep their bytes, be they UTF-8 or not. Touches no file. Stateless; any thread.
class FileAddress {
 public:
  /// Of an absolute path: "file:///takes/R0001.WAV".
  static std::string of(const std::filesystem::path& file);
  /// A list of addresses (RFC 2483, "text/uri-list").
  static std::string listOf(const std::vector<std::filesystem::path>& files);
  /// The files of this machine in such a list, in its order.
  static std::vector<std::filesystem::path> pathsIn(std::string_view list);
};
