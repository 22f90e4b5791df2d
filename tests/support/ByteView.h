// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Looks into bytes by hand, little-endian, at absolute offsets. Throws std::out_of_range past the
/// end. Keeps a copy, so it may outlive what it was made from.
class ByteView {
 public:
  explicit ByteView(std::vector<std::byte> bytes) : _bytes(std::move(bytes)) {}

  [[nodiscard]] std::uint16_t u16(std::size_t offset) const;
  [[nodiscard]] std::int32_t s24(std::size_t offset) const;
  [[nodiscard]] std::uint32_t u32(std::size_t offset) const;
  [[nodiscard]] float f32(std::size_t offset) const;
  /// `count` bytes as characters, zeros included.
  [[nodiscard]] std::string text(std::size_t offset, std::size_t count) const;
  /// All bytes from `offset` on as signed 24-bit integers, or as floats.
  [[nodiscard]] std::vector<std::int32_t> all24(std::size_t offset) const;
  [[nodiscard]] std::vector<float> allFloats(std::size_t offset) const;

  [[nodiscard]] std::size_t size() const { return _bytes.size(); }
  [[nodiscard]] const std::vector<std::byte>& get() const { return _bytes; }

 private:
  [[nodiscard]] std::uint32_t little(std::size_t offset, std::size_t count) const;

  std::vector<std::byte> _bytes;
};
