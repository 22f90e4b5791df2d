// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Finds the cards among the volumes that are mounted: what is mounted where desktops mount what is
/// plugged in ("/media", "/run/media", "/mnt"), from a device, and holds recordings of the recorder
/// at its top or in a folder there. A folder with a manifest is a copy, and does not count.
///
/// A volume is looked into once, as long as it stays mounted, and only at its first files. One
/// thread at a time; waits for the media.
class CardFinder {
 public:
  /// Where users' volumes are mounted, each with a slash in the end.
  using Places = std::vector<std::string>;

  explicit CardFinder(std::filesystem::path mounts = "/proc/self/mountinfo",
                      Places places = {"/media/", "/run/media/", "/mnt/"})
      : _mounts(std::move(mounts)), _places(std::move(places)) {}

  /// The folders that cards are mounted on, in the order of mounting.
  std::vector<std::filesystem::path> find();
  /// Whether a volume that is mounted there is a card.
  static bool isCard(const std::filesystem::path& volume);

 private:
  [[nodiscard]] std::optional<std::filesystem::path> pointOf(const std::string& line) const;

  std::filesystem::path _mounts;
  Places _places;
  std::map<std::string, bool> _known;  ///< whether it is a card, by the line about the mount
};
