// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "wav/WaveImage.h"

/// Little-endian integers of an image, fetched through a small window, which waits for the medium.
/// Bytes past the end are 0. One thread at a time.
class ImageFields {
 public:
  explicit ImageFields(const WaveImage& image) : _image(image) {}

  /// Byte count of the image.
  [[nodiscard]] std::uint64_t size() const { return _image.size(); }

  std::uint8_t u8(std::uint64_t offset) {
    if (offset < _start || offset - _start >= _held) fetch(offset);
    return offset - _start < _held ? std::to_integer<std::uint8_t>(_window[offset - _start]) : 0;
  }
  std::uint16_t u16(std::uint64_t offset) {
    return static_cast<std::uint16_t>(u8(offset) | u8(offset + 1) << 8);
  }
  std::uint32_t u32(std::uint64_t offset) {
    return u16(offset) | static_cast<std::uint32_t>(u16(offset + 2)) << 16;
  }
  std::uint64_t u64(std::uint64_t offset) {
    return u32(offset) | static_cast<std::uint64_t>(u32(offset + 4)) << 32;
  }

 private:
  void fetch(std::uint64_t offset) {
    _start = offset;
    _held = _image.readAt(offset, _window);
  }

  const WaveImage& _image;
  std::array<std::byte, 4096> _window{};
  std::uint64_t _start = 0;
  std::size_t _held = 0;
};
