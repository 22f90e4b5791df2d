// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/MediumFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "transfer/ContentHash.h"

namespace {

// Only the owner may ask for it.
int openWithoutTrace(const std::filesystem::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOATIME);
  return file >= 0 || errno != EPERM ? file : open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

// There are file systems that open a file for reads past the cache, and then refuse them.
bool isReadable(int file) {
  alignas(BlocksAhead::kAlignment) std::array<std::byte, BlocksAhead::kAlignment> sector;
  return pread(file, sector.data(), sector.size(), 0) >= 0 || errno != EINVAL;
}

}  // namespace

MediumFile::MediumFile(std::filesystem::path path, Way way) : _path(std::move(path)) {
  open(way);
}

void MediumFile::open(Way way) {
  const bool isDirect = way == Way::PastCache && openPastCache();
  if (!isDirect) _file = openWithoutTrace(_path);
  struct stat status {};
  if (_file < 0 || fstat(_file, &status) != 0) return fail(errno);
  if (!S_ISREG(status.st_mode)) return fail(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  if (way == Way::PastCache && !isDirect) posix_fadvise(_file, 0, 0, POSIX_FADV_DONTNEED);
  posix_fadvise(_file, 0, 0, POSIX_FADV_SEQUENTIAL);
  _blocks = std::make_unique<BlocksAhead>(_file, isDirect ? Way::PastCache : Way::Plain);
}

MediumFile::~MediumFile() {
  _blocks.reset();
  if (_file >= 0) close(_file);
}

// Not every file system knows it.
bool MediumFile::openPastCache() {
  _file = ::open(_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_DIRECT);
  if (_file < 0 || isReadable(_file)) return _file >= 0;
  close(std::exchange(_file, -1));
  return false;
}

std::span<const std::byte> MediumFile::next() {
  if (!_blocks) return {};
  const auto bytes = _blocks->next();
  if (_blocks->error() != 0) fail(_blocks->error());
  return bytes;
}

void MediumFile::fail(int error) {
  _failure = std::generic_category().message(error);
}

MediumContent MediumContent::of(const std::filesystem::path& path, MediumFile::Way way,
                                const MediumStep& step) {
  MediumContent content;
  MediumFile file(path, way);
  ContentHash hash;
  for (auto bytes = file.next(); !bytes.empty(); bytes = file.next()) {
    hash.add(bytes);
    content.size += bytes.size();
    if (!step(bytes.size())) return content;
  }
  content.failure = file.failure();
  if (content.failure.empty()) content.hash = hash.hex();
  return content;
}
