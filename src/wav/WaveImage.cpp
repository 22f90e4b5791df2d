// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "wav/WaveImage.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>

std::shared_ptr<WaveImage> WaveImage::fromBytes(std::span<const std::byte> data) {
  std::shared_ptr<WaveImage> image(new WaveImage);
  image->_size = data.size();
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): the array frees it
  image->_raw.bytes =
      static_cast<std::uint8_t*>(std::malloc(std::max<std::size_t>(data.size(), 1)));
  if (image->_raw.bytes == nullptr) {
    image->_allocationFailure = std::generic_category().message(ENOMEM);
    return image;
  }
  image->_raw.length = data.size();
  if (!data.empty()) std::memcpy(image->_raw.bytes, data.data(), data.size());
  return image;
}

std::shared_ptr<WaveImage> WaveImage::fromFile(const std::filesystem::path& path,
                                               std::string& whyNot) {
  auto file = FileBytes::open(path, whyNot);
  return file ? over(std::move(file)) : nullptr;
}

std::shared_ptr<WaveImage> WaveImage::sibling() const {
  return _file ? over(_file) : nullptr;
}

std::shared_ptr<WaveImage> WaveImage::over(std::shared_ptr<const FileBytes> file) {
  std::shared_ptr<WaveImage> image(new WaveImage);
  image->_size = file->size();
  image->_blocks = FollowedBlocks::over(file);
  image->_file = std::move(file);
  return image;
}

// The file is let go first, so that the worker is its last owner, if there is one.
WaveImage::~WaveImage() {
  _file.reset();
  if (_blocks) _blocks->end();
}

std::span<const std::byte> WaveImage::bytes() const {
  return std::as_bytes(std::span(_raw.bytes, _raw.length));
}

void WaveImage::follow(std::uint64_t offset) {
  if (_blocks) _blocks->follow(offset);
}

void WaveImage::abandon() {
  if (_blocks) _blocks->rest();
}

std::string WaveImage::followFailure() const {
  return _blocks ? _blocks->failure() : std::string();
}

std::uint64_t WaveImage::heldFrom(std::uint64_t offset) const {
  if (_blocks) return _blocks->heldFrom(offset);
  return offset < _raw.length ? _raw.length - offset : 0;
}

std::size_t WaveImage::readHeld(std::uint64_t offset, std::span<std::byte> to) const {
  return _blocks ? _blocks->read(offset, to) : readAt(offset, to);
}

std::size_t WaveImage::readAt(std::uint64_t offset, std::span<std::byte> to) const {
  if (_file) return _file->readAt(offset, to);
  const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(to.size(), heldFrom(offset)));
  if (count > 0) std::memcpy(to.data(), _raw.bytes + offset, count);
  return count;
}

std::span<const std::byte> WaveImage::view(std::uint64_t offset, std::size_t count,
                                           std::vector<std::byte>& scratch) const {
  if (!_file) {
    const std::uint64_t there = heldFrom(offset);
    if (there == 0) return {};
    return bytes().subspan(offset, std::min<std::uint64_t>(count, there));
  }
  scratch.resize(count);
  return std::span(scratch).first(readAt(offset, scratch));
}

bool WaveImage::isDeleted() const {
  return _file && _file->isDeleted();
}

std::string WaveImage::failure() const {
  return _file ? _file->failure() : _allocationFailure;
}
