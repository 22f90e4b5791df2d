// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/ByteBuilder.h"

#include <array>
#include <bit>

ByteBuilder& ByteBuilder::text(std::string_view characters) {
  const auto* const first = reinterpret_cast<const std::byte*>(characters.data());
  _bytes.insert(_bytes.end(), first, first + characters.size());
  return *this;
}

ByteBuilder& ByteBuilder::field(std::string_view characters, std::size_t width) {
  const std::size_t end = _bytes.size() + width;
  text(characters.substr(0, width));
  _bytes.resize(end);
  return *this;
}

ByteBuilder& ByteBuilder::little(std::uint64_t value, std::size_t count) {
  std::array<std::byte, 8> bytes{};
  for (std::size_t i = 0; i < count; ++i) bytes.at(i) = static_cast<std::byte>(value >> (8 * i));
  _bytes.insert(_bytes.end(), bytes.data(), bytes.data() + count);
  return *this;
}

ByteBuilder& ByteBuilder::u8(std::uint8_t value) {
  return little(value, 1);
}
ByteBuilder& ByteBuilder::u16(std::uint16_t value) {
  return little(value, 2);
}
ByteBuilder& ByteBuilder::s24(std::int32_t value) {
  return little(static_cast<std::uint32_t>(value), 3);
}
ByteBuilder& ByteBuilder::u32(std::uint32_t value) {
  return little(value, 4);
}
ByteBuilder& ByteBuilder::u64(std::uint64_t value) {
  return little(value, 8);
}
ByteBuilder& ByteBuilder::f32(float value) {
  return u32(std::bit_cast<std::uint32_t>(value));
}

ByteBuilder& ByteBuilder::zeros(std::size_t count) {
  _bytes.resize(_bytes.size() + count);
  return *this;
}

ByteBuilder& ByteBuilder::bytes(const std::vector<std::byte>& more) {
  _bytes.insert(_bytes.end(), more.begin(), more.end());
  return *this;
}

ByteBuilder& ByteBuilder::patch32(std::size_t offset, std::uint32_t value) {
  for (std::size_t i = 0; i < 4; ++i)
    _bytes.at(offset + i) = static_cast<std::byte>(value >> (8 * i));
  return *this;
}
