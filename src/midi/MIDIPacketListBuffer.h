// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "midi/MIDIPackets.h"

/// An outgoing list of byte packets in a fixed block of 10,000 bytes: four for the list, then ten
/// and its data for each packet, in steps of four. One thread at a time.
class MIDIPacketListBuffer {
 public:
  static constexpr std::size_t kCapacity = 10000;

  /// An empty list in a cleared block.
  void clear();
  /// Appends a packet; false, and nothing done, where it does not fit.
  bool add(std::uint64_t timeStamp, std::span<const std::uint8_t> bytes);
  /// Valid until the next change.
  [[nodiscard]] MIDIPacketList packets() const { return _packets; }

 private:
  static constexpr std::size_t kListHeader = 4;
  static constexpr std::size_t kPacketHeader = 10;

  std::array<std::uint8_t, kCapacity> _bytes{};
  std::size_t _used = kListHeader;
  std::vector<MIDIPacket> _packets;
};
