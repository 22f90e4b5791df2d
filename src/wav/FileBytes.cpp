// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/FileBytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "wav/ClosingElsewhere.h"

namespace {

std::string errorText(int error) {
  return std::generic_category().message(error);
}

// pread until all is there, the file ends or an error stops it (0 otherwise).
std::size_t readFully(int file, std::span<std::byte> to, std::uint64_t offset, int& error) {
  std::size_t done = 0;
  error = 0;
  while (done < to.size()) {
    const ssize_t got =
        pread(file, to.data() + done, to.size() - done, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) error = errno;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

}  // namespace

std::shared_ptr<const FileBytes> FileBytes::open(const std::filesystem::path& path,
                                                 std::string& whyNot) {
  // Not to hang on a pipe; no meaning for a regular file.
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  const std::shared_ptr<FileBytes> file(new FileBytes(descriptor));
  struct stat status {};
  if (descriptor < 0 || fstat(descriptor, &status) != 0) {
    whyNot = errorText(errno);
    return nullptr;
  }
  if (!S_ISREG(status.st_mode)) {
    whyNot = S_ISDIR(status.st_mode) ? errorText(EISDIR) : "Not a regular file";
    return nullptr;
  }
  constexpr std::int64_t kSecond = 1'000'000'000;
  file->_state = {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
                  status.st_mtim.tv_sec * kSecond + status.st_mtim.tv_nsec};
  file->_hasLinks = status.st_nlink > 0;
  posix_fadvise(descriptor, 0, 0, POSIX_FADV_SEQUENTIAL);
  return file;
}

FileBytes::~FileBytes() {
  if (_file >= 0) ClosingElsewhere::close(_file);
}

std::size_t FileBytes::readAt(std::uint64_t offset, std::span<std::byte> to) const {
  if (offset >= size()) return 0;
  const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(to.size(), size() - offset));
  int error = 0;
  const std::size_t got = readFully(_file, to.first(count), offset, error);
  if (got < count) fail(error != 0 ? errorText(error) : "The file became shorter");
  return got;
}

bool FileBytes::isDeleted() const {
  struct stat status {};
  return _hasLinks && fstat(_file, &status) == 0 && status.st_nlink == 0;
}

std::string FileBytes::failure() const {
  const std::lock_guard lock(_mutex);
  return _failure;
}

void FileBytes::fail(const std::string& reason) const {
  const std::lock_guard lock(_mutex);
  _failure = reason;
}
