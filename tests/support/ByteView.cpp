// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "support/ByteView.h"

#include <bit>

std::uint32_t ByteView::little(std::size_t offset, std::size_t count) const {
  std::uint32_t value = 0;
  for (std::size_t i = count; i > 0; --i) {
    value = value << 8 | std::to_integer<std::uint32_t>(_bytes.at(offset + i - 1));
  }
  return value;
}

std::uint16_t ByteView::u16(std::size_t offset) const {
  return static_cast<std::uint16_t>(little(offset, 2));
}

std::int32_t ByteView::s24(std::size_t offset) const {
  return static_cast<std::int32_t>(little(offset, 3) << 8) >> 8;
}

std::uint32_t ByteView::u32(std::size_t offset) const {
  return little(offset, 4);
}

float ByteView::f32(std::size_t offset) const {
  return std::bit_cast<float>(u32(offset));
}

std::string ByteView::text(std::size_t offset, std::size_t count) const {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += static_cast<char>(_bytes.at(offset + i));
  return text;
}

std::vector<std::int32_t> ByteView::all24(std::size_t offset) const {
  std::vector<std::int32_t> values;
  for (; offset + 3 <= size(); offset += 3) values.push_back(s24(offset));
  return values;
}

std::vector<float> ByteView::allFloats(std::size_t offset) const {
  std::vector<float> values;
  for (; offset + 4 <= size(); offset += 4) values.push_back(f32(offset));
  return values;
}
