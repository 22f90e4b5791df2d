// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WaveImage.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <system_error>
#include <thread>

namespace {

constexpr std::size_t kLoadBlock = 1 << 20;
constexpr std::size_t kHugePage = 2 << 20;
constexpr auto kCancelPoll = std::chrono::milliseconds(20);

std::string errorText(int error) {
  return std::generic_category().message(error);
}

// A whole-file block is worth huge pages: a fraction of the page faults.
std::uint8_t* allocateBlock(std::uint64_t size) {
  const bool large = size >= 2 * kHugePage;
  void* block = nullptr;
  if (posix_memalign(&block, large ? kHugePage : alignof(std::max_align_t),
                     std::max<std::uint64_t>(size, 1)) != 0) {
    return nullptr;
  }
  if (large) madvise(block, size, MADV_HUGEPAGE);
  return static_cast<std::uint8_t*>(block);
}

// pread until all is there, the file ends or an error stops it (-1 with errno).
ssize_t readFully(int file, std::byte* to, std::size_t count, std::uint64_t offset) {
  std::size_t done = 0;
  while (done < count) {
    const ssize_t got = pread(file, to + done, count - done, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return -1;
    if (got == 0) break;
    done += static_cast<std::size_t>(got);
  }
  return static_cast<ssize_t>(done);
}

}  // namespace

std::shared_ptr<WaveImage> WaveImage::fromBytes(std::span<const std::byte> data) {
  std::shared_ptr<WaveImage> image(new WaveImage);
  image->_size = data.size();
  if (!image->allocate()) return image;
  if (!data.empty()) std::memcpy(image->_raw.bytes, data.data(), data.size());
  image->_loaded.store(data.size(), std::memory_order_release);
  return image;
}

std::shared_ptr<WaveImage> WaveImage::fromFile(const std::filesystem::path& path,
                                               std::string& whyNot) {
  std::shared_ptr<WaveImage> image(new WaveImage);
  // Not to hang on a pipe; no meaning for a regular file.
  image->_file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  struct stat status {};
  if (image->_file < 0 || fstat(image->_file, &status) != 0) {
    whyNot = errorText(errno);
    return nullptr;
  }
  if (!S_ISREG(status.st_mode)) {
    whyNot = S_ISDIR(status.st_mode) ? errorText(EISDIR) : "Not a regular file";
    return nullptr;
  }
  image->_size = static_cast<std::uint64_t>(status.st_size);
  posix_fadvise(image->_file, 0, 0, POSIX_FADV_SEQUENTIAL);
  return image;
}

WaveImage::~WaveImage() {
  if (_file >= 0) close(_file);
}

std::span<const std::byte> WaveImage::bytes() const {
  const std::uint64_t count = loaded();
  if (count == 0) return {};
  return {reinterpret_cast<const std::byte*>(_raw.bytes), count};
}

bool WaveImage::allocate() {
  _raw.bytes = allocateBlock(_size);
  if (_raw.bytes == nullptr) {
    fail(errorText(ENOMEM));
    return false;
  }
  _raw.length = _size;
  return true;
}

void WaveImage::startLoading() {
  if (_file >= 0) std::call_once(_launched, [this] { launch(); });
}

void WaveImage::launch() {
  if (!allocate()) return;
  try {
    // The thread keeps the image alive by itself, so that nobody ever waits for a hanging medium.
    std::thread([image = shared_from_this()] { image->load(); }).detach();
  } catch (const std::system_error& error) {
    fail(error.what());
  }
}

void WaveImage::load() {
  auto* const to = reinterpret_cast<std::byte*>(_raw.bytes);
  std::uint64_t done = 0;
  while (done < _size && !_stopped.load(std::memory_order_relaxed)) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(kLoadBlock, _size - done));
    const ssize_t got = readFully(_file, to + done, count, done);
    if (got < 0) return fail(errorText(errno));
    if (static_cast<std::size_t>(got) < count) return fail("The file became shorter");
    done += count;
    const std::lock_guard lock(_mutex);
    _loaded.store(done, std::memory_order_release);
    _progressed.notify_all();
  }
}

void WaveImage::fail(const std::string& reason) const {
  const std::lock_guard lock(_mutex);
  _failure = reason;
  _stopped.store(true, std::memory_order_relaxed);
  _progressed.notify_all();
}

void WaveImage::abandon() {
  const std::lock_guard lock(_mutex);
  _stopped.store(true, std::memory_order_relaxed);
  _progressed.notify_all();
}

bool WaveImage::waitUntilLoaded(std::uint64_t end, const std::atomic<bool>* cancel) const {
  end = std::min(end, _size);
  if (loaded() >= end) return true;
  std::unique_lock lock(_mutex);
  while (loaded() < end) {
    const bool cancelled = cancel != nullptr && cancel->load(std::memory_order_relaxed);
    if (cancelled || _stopped.load(std::memory_order_relaxed)) return false;
    if (cancel != nullptr) {
      _progressed.wait_for(lock, kCancelPoll);
    } else {
      _progressed.wait(lock);
    }
  }
  return true;
}

std::string WaveImage::failure() const {
  const std::lock_guard lock(_mutex);
  return _failure;
}

std::size_t WaveImage::readAt(std::uint64_t offset, std::span<std::byte> to) const {
  if (offset >= _size) return 0;
  const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(to.size(), _size - offset));
  if (offset + count <= loaded()) {
    if (count > 0) std::memcpy(to.data(), _raw.bytes + offset, count);
    return count;
  }
  if (_file < 0) return 0;
  const ssize_t got = readFully(_file, to.data(), count, offset);
  if (got < 0) fail(errorText(errno));
  return static_cast<std::size_t>(std::max<ssize_t>(0, got));
}

std::span<const std::byte> WaveImage::view(std::uint64_t offset, std::size_t count,
                                           std::vector<std::byte>& scratch) const {
  const std::uint64_t arrived = loaded();
  if (arrived >= count && offset <= arrived - count) return bytes().subspan(offset, count);
  scratch.resize(count);
  return std::span(scratch).first(readAt(offset, scratch));
}
