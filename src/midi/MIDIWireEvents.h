// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// The pieces of a `MIDIWireReader` as Universal MIDI Packets of group 0, and SysEx packets as
/// bytes again (M2-104-UM). A SysEx message without its beginning is left out. One
/// thread at a time.
class MIDIWireEvents {
 public:
  using Words = std::vector<std::uint32_t>;

  /// The messages that this piece, after the earlier ones, makes; one or two words each.
  std::vector<Words> feed(std::span<const std::uint8_t> piece);

  /// The bytes of one SysEx packet: with F0 where a message begins and F7 where it ends.
  static std::vector<std::uint8_t> bytesOf(std::span<const std::uint32_t> words);

 private:
  void takeSysEx(std::uint8_t byte);
  void finishPacket(bool isEnd);

  std::vector<Words> _finished;
  std::array<std::uint8_t, 6> _payload{};
  std::size_t _held = 0;
  bool _isOpen = false;
  bool _hasBegun = false;  ///< the start packet of the open message has gone
};
