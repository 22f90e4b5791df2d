// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Puts bytes together by hand, little-endian, in the order of the calls.
class ByteBuilder {
 public:
  ByteBuilder& text(std::string_view characters);
  /// The text cut or zero-filled to `width` bytes.
  ByteBuilder& field(std::string_view characters, std::size_t width);
  ByteBuilder& u8(std::uint8_t value);
  ByteBuilder& u16(std::uint16_t value);
  ByteBuilder& s24(std::int32_t value);
  ByteBuilder& u32(std::uint32_t value);
  ByteBuilder& u64(std::uint64_t value);
  ByteBuilder& f32(float value);
  ByteBuilder& zeros(std::size_t count);
  ByteBuilder& bytes(const std::vector<std::byte>& more);

  /// Overwrites four bytes.
  ByteBuilder& patch32(std::size_t offset, std::uint32_t value);

  [[nodiscard]] std::size_t size() const { return _bytes.size(); }
  [[nodiscard]] const std::vector<std::byte>& get() const { return _bytes; }

 private:
  ByteBuilder& little(std::uint64_t value, std::size_t count);

  std::vector<std::byte> _bytes;
};
