// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "takes/AnalysisCache.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "export/AtomicFile.h"
#include "takes/AnalysisBytes.h"
#include "takes/FileTime.h"
#include "takes/TakeIdentity.h"
#include "takes/UserFolder.h"
#include "wav/FileBytes.h"

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kEnding = ".analysis";
constexpr std::uint64_t kLeastAtOnce = 4;  // one alone must not drive out all others
constexpr std::size_t kTimeBytes = sizeof(std::int64_t);

std::span<const std::byte> readableBytesOf(const std::int64_t& value) {
  return std::as_bytes(std::span(&value, 1));
}

std::span<std::byte> writableBytesOf(std::int64_t& value) {
  return std::as_writable_bytes(std::span(&value, 1));
}

std::shared_ptr<const TakeAnalysis> readFrom(const FileBytes& file, const AnalysisCache::Key& key) {
  std::uint64_t at = kTimeBytes;
  const auto next = [&](std::span<std::byte> bytes) {
    const std::size_t count = file.readAt(at, bytes);
    at += count;
    return count == bytes.size();
  };
  return AnalysisBytes::read(next, key.layout, key.file);
}

struct Kept {
  fs::path path;
  FileTime state;
};

std::vector<Kept> listed(const fs::path& folder) {
  std::vector<Kept> all;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().extension() != kEnding) continue;
    all.push_back({entry->path(), FileTime::of(entry->path())});
  }
  return all;
}

}  // namespace

AnalysisCache::Key AnalysisCache::Key::of(const WaveFileReader& reader) {
  const TakeLayout layout(reader.header().SampleRate, reader.frameCount(), reader.isBoMSFormat());
  return {TakeIdentity::of(reader), reader.fileState(), layout};
}

AnalysisCache::AnalysisCache(fs::path folder, std::uint64_t mostBytes)
    : _folder(std::move(folder)), _mostBytes(mostBytes) {}

fs::path AnalysisCache::defaultFolder() {
  return UserFolder::of("XDG_CACHE_HOME", ".cache") / "analyses";
}

// The version is in the name: programs of two versions do not throw out each other's.
fs::path AnalysisCache::fileOf(const Key& key) const {
  return _folder / fmt::format("{}-{}-{}{}", key.take, key.layout.isRawMidSide() ? "ms" : "lr",
                               AnalysisBytes::kVersion, kEnding);
}

std::shared_ptr<const TakeAnalysis> AnalysisCache::find(const Key& key) const {
  if (key.take.empty()) return nullptr;
  const fs::path path = fileOf(key);
  std::string whyNot;
  const auto file = FileBytes::open(path, whyNot);
  if (!file) return nullptr;
  const bool hasItsSize = file->size() == kTimeBytes + AnalysisBytes::sizeOf(key.layout);
  std::int64_t modified = 0;
  const bool isRead = hasItsSize && file->readAt(0, writableBytesOf(modified)) == kTimeBytes;
  if (isRead && modified != key.file.modified)
    return nullptr;  // the next that is kept takes its place
  auto found = isRead ? readFrom(*file, key) : nullptr;
  std::error_code error;
  if (found) {
    utimensat(AT_FDCWD, path.c_str(), nullptr, 0);  // used now
  } else {
    fs::remove(path, error);
  }
  return found;
}

bool AnalysisCache::keep(const Key& key, const TakeAnalysis& analysis) const {
  if (key.take.empty() || !analysis.isComplete()) return false;
  const std::uint64_t size = kTimeBytes + AnalysisBytes::sizeOf(analysis.layout());
  if (kLeastAtOnce * size > _mostBytes) return false;
  std::error_code error;
  fs::create_directories(_folder, error);
  AtomicFile file(fileOf(key), AtomicFile::Existing::Replace);
  const auto toFile = [&file](std::span<const std::byte> bytes) { return file.write(bytes); };
  const bool isKept = file.write(readableBytesOf(key.file.modified)) &&
                      AnalysisBytes::write(analysis, toFile) && file.commit();
  if (isKept) makeRoom();
  return isKept;
}

// What another program has removed meanwhile is as good as removed here.
void AnalysisCache::makeRoom() const {
  std::vector<Kept> all = listed(_folder);
  std::ranges::sort(all, std::ranges::greater(),
                    [](const Kept& kept) { return kept.state.modified; });
  std::uint64_t total = 0;
  for (const Kept& kept : all) {
    total += kept.state.size;
    std::error_code error;
    if (total > _mostBytes) fs::remove(kept.path, error);
  }
}
