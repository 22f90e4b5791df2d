// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/CardFinder.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "export/Recognition.h"
#include "transfer/FolderFiles.h"
#include "transfer/ManifestFolder.h"
#include "wav/WaveFileReader.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kDevice = "/dev/";
constexpr std::size_t kPointField = 4;
constexpr std::size_t kAfterDash = 2;  // the source, behind the type
constexpr int kMostEntries = 1000;     // that are looked at in a folder
constexpr int kMostTakes = 4;          // of which one may be the recorder's
constexpr int kMostFolders = 50;

// As the kernel writes a path: "\040" is a space.
std::string unescaped(std::string_view text) {
  constexpr std::size_t kEscape = 4;
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isEscape = text[i] == '\\' && i + kEscape <= text.size();
    if (!isEscape) {
      plain += text[i];
      continue;
    }
    int byte = 0;
    for (const char digit : text.substr(i + 1, kEscape - 1)) byte = 8 * byte + (digit - '0');
    plain += static_cast<char>(byte);
    i += kEscape - 1;
  }
  return plain;
}

bool isOfRecorder(const fs::path& file) {
  std::string whyNot;
  const auto reader = WaveFileReader::openFile(file, whyNot);
  return reader && Recognition(*reader).isRecorder();
}

/// What a folder holds, as far as it is looked at.
struct Contents {
  explicit Contents(const fs::path& folder) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (int i = 0; !error && entry != fs::directory_iterator() && i < kMostEntries; ++i) {
      take(*entry);
      entry.increment(error);
    }
    std::ranges::sort(takes);
    std::ranges::sort(folders);
  }
  void take(const fs::directory_entry& entry) {
    std::error_code error;
    const std::string name = entry.path().filename();
    isCopy = isCopy || name == ManifestFolder::kName;
    if (name.starts_with('.')) return;
    if (entry.is_directory(error)) folders.push_back(entry.path());
    const bool isTake = FolderFiles::isTake(entry.path()) && entry.is_regular_file(error);
    if (isTake) takes.push_back(entry.path());
  }
  [[nodiscard]] bool hasRecording() const {
    const auto last = takes.begin() + std::min<std::ptrdiff_t>(kMostTakes, std::ssize(takes));
    return !isCopy && std::any_of(takes.begin(), last, isOfRecorder);
  }

  std::vector<fs::path> takes;
  std::vector<fs::path> folders;
  bool isCopy = false;
};

}  // namespace

bool CardFinder::isCard(const fs::path& volume) {
  const Contents top(volume);
  if (top.isCopy) return false;
  if (top.hasRecording()) return true;
  const auto last =
      top.folders.begin() + std::min<std::ptrdiff_t>(kMostFolders, std::ssize(top.folders));
  return std::any_of(top.folders.begin(), last,
                     [](const fs::path& folder) { return Contents(folder).hasRecording(); });
}

// Where a line of the list says that something from a device is mounted for the user.
std::optional<fs::path> CardFinder::pointOf(const std::string& line) const {
  std::istringstream stream(line);
  std::vector<std::string> fields;
  for (std::string field; stream >> field;) fields.push_back(field);
  const auto dash = std::ranges::find(fields, "-");
  if (fields.size() <= kPointField || fields.end() - dash <= std::ptrdiff_t{kAfterDash}) {
    return std::nullopt;
  }
  const std::string point = unescaped(fields[kPointField]);
  const bool isUsers = std::ranges::any_of(
      _places, [&point](const std::string& place) { return point.starts_with(place); });
  const bool isDevice = dash[kAfterDash].starts_with(kDevice);
  return isUsers && isDevice ? std::optional<fs::path>(point) : std::nullopt;
}

std::vector<fs::path> CardFinder::find() {
  std::vector<fs::path> cards;
  std::map<std::string, bool> known;
  std::ifstream lines(_mounts);
  for (std::string line; std::getline(lines, line);) {
    const auto point = pointOf(line);
    if (!point) continue;
    const auto before = _known.find(line);
    const bool is = before != _known.end() ? before->second : isCard(*point);
    known.emplace(line, is);
    if (is) cards.push_back(*point);
  }
  _known = std::move(known);
  return cards;
}
