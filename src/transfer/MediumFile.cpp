// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "transfer/MediumFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <new>
#include <system_error>
#include <utility>

#include "transfer/ContentHash.h"

namespace {

constexpr std::size_t kBlock = 1 << 20;
constexpr std::size_t kAlignment = 4096;

// Only the owner may ask for it.
int openWithoutTrace(const std::filesystem::path& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOATIME);
  return file >= 0 || errno != EPERM ? file : open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
}

}  // namespace

void MediumFile::Release::operator()(std::byte* block) const {
  std::free(block);  // NOLINT(cppcoreguidelines-no-malloc)
}

MediumFile::MediumFile(std::filesystem::path path, Way way)
    : _path(std::move(path)),
      _block(static_cast<std::byte*>(std::aligned_alloc(kAlignment, kBlock))) {
  if (!_block) throw std::bad_alloc();
  open(way);
}

void MediumFile::open(Way way) {
  _isDirect = way == Way::PastCache && openPastCache();
  if (_file < 0) _file = openWithoutTrace(_path);
  struct stat status {};
  if (_file < 0 || fstat(_file, &status) != 0) return fail(errno);
  if (!S_ISREG(status.st_mode)) return fail(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  if (way == Way::PastCache && !_isDirect) posix_fadvise(_file, 0, 0, POSIX_FADV_DONTNEED);
  posix_fadvise(_file, 0, 0, POSIX_FADV_SEQUENTIAL);
}

MediumFile::~MediumFile() {
  if (_file >= 0) close(_file);
}

// Not every file system knows it.
bool MediumFile::openPastCache() {
  _file = ::open(_path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_DIRECT);
  return _file >= 0;
}

bool MediumFile::openThroughCache() {
  const int file = openWithoutTrace(_path);
  if (file < 0) return false;
  close(std::exchange(_file, file));
  _isDirect = false;
  posix_fadvise(_file, 0, 0, POSIX_FADV_DONTNEED);
  return true;
}

ssize_t MediumFile::read() {
  const auto offset = static_cast<off_t>(_position);
  ssize_t got = pread(_file, _block.get(), kBlock, offset);
  while (got < 0 && errno == EINTR) got = pread(_file, _block.get(), kBlock, offset);
  return got;
}

// There are file systems that open a file for reads past the cache, and then refuse them.
std::span<const std::byte> MediumFile::next() {
  if (_isAtEnd || !_failure.empty()) return {};
  ssize_t got = read();
  const bool isRefused = got < 0 && errno == EINVAL && _isDirect && _position == 0;
  if (isRefused && openThroughCache()) got = read();
  if (got < 0) {
    fail(errno);
    return {};
  }
  const auto count = static_cast<std::size_t>(got);
  // Past the cache only the last block of a file may be cut.
  _isAtEnd = count == 0 || (_isDirect && count % kAlignment != 0);
  _position += count;
  return {_block.get(), count};
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
