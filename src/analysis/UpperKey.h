// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstdint>

/// A float in 16 bits that is never less than the float: the upper half of its bits, rounded up, in
/// an order in which a greater number has a greater key. So the greater of two keys is the key of
/// the greater number. At most 2^-7 of the value is added (0.067 dB).
class UpperKey {
 public:
  using Key = std::int16_t;

  /// The key of nothing yet: no number has a lower one.
  static constexpr Key kNothing = INT16_MIN;

  /// Any number, infinities too.
  static constexpr Key of(float value) {
    return static_cast<Key>((ordered(std::bit_cast<std::int32_t>(value + 0.0F)) + 0xFFFF) >> 16);
  }

  /// The number that a key stands for; of `kNothing` minus infinity.
  static constexpr float value(Key key) {
    if (key < kLowest) return std::bit_cast<float>(0xFF800000U);
    return std::bit_cast<float>(ordered(static_cast<std::int32_t>(key) * 0x10000));
  }

 private:
  static constexpr Key kLowest = -0x7F80;  ///< of minus infinity

  // Bits of a float to an integer of the same order, and back.
  static constexpr std::int32_t ordered(std::int32_t bits) {
    return bits ^ ((bits >> 31) & 0x7FFFFFFF);
  }
};
