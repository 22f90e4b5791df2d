// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One generation of an ASC Media Hash List, version 2.0: what files a folder held at a time, and
/// the XXH3 (128 bits) of each. Texts are UTF-8, times ISO 8601. Plain data: one thread at a time.
struct Manifest {
  struct Entry {
    std::string path;                   ///< from the folder on, parts divided by slashes
    std::optional<std::uint64_t> size;  ///< bytes; none where it is not told
    std::string modified;               ///< when the file was last changed; may be empty
    std::string hash;      ///< small hexadecimal digits; empty where it has none of that kind
    std::string action;    ///< "original", "verified", or "failed", which one of any kind may be
    std::string hashedAt;  ///< may be empty
  };

  /// "2026-11-22T04:56:00+00:00" of seconds since 1970.
  static std::string timeText(std::int64_t seconds);

  std::string createdAt;
  std::string host;
  std::string toolVersion;
  std::vector<Entry> entries;

  [[nodiscard]] std::string toXml() const;
  /// None where the document is no such list, with the reason in `whyNot`. A path that leads out of
  /// the folder makes it none.
  static std::optional<Manifest> fromXml(std::string_view document, std::string& whyNot);
};

/// The list of the generations of a folder, with the C4 identifier of each file.
struct ManifestChain {
  struct Link {
    std::uint64_t number = 0;
    std::string file;
    std::string c4;
  };

  std::vector<Link> links;

  [[nodiscard]] std::string toXml() const;
  static std::optional<ManifestChain> fromXml(std::string_view document, std::string& whyNot);
};
