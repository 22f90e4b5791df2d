// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// The message that is being received, from F0 on and without the closing F7. It has room for
/// 20,000 bytes; a message that needs more is lost as a whole. One thread at a time.
class MIDIReceiveBuffer {
 public:
  static constexpr std::size_t kCapacity = 20000;
  static constexpr std::uint8_t kSysExStart = 0xF0;
  static constexpr std::uint8_t kSysExEnd = 0xF7;

  /// Clears all and begins a message with these bytes.
  void begin(std::span<const std::uint8_t> bytes);
  /// Appends, and moves on by `advance` bytes, which may be more than were given. What no longer
  /// fits spoils the message.
  void append(std::span<const std::uint8_t> bytes, std::size_t advance);
  void append(std::span<const std::uint8_t> bytes) { append(bytes, bytes.size()); }
  /// F0 and a short message of `count` - 1 of these three bytes; what lies behind them stays.
  void replace(std::span<const std::uint8_t, 3> bytes, std::uint32_t count);

  /// True when the message has become too long to be of use; logs it, once, and forgets it.
  bool dropIfSpoilt();

  [[nodiscard]] const std::uint8_t* bytes() const { return _bytes.data(); }
  [[nodiscard]] std::uint32_t count() const { return _count; }

 private:
  std::array<std::uint8_t, kCapacity> _bytes{kSysExStart};
  std::uint32_t _count = 1;
  bool _isSpoilt = false;
};
