// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

/// One received or outgoing piece of a MIDI 1.0 byte stream: a SysEx message or a part of one, or
/// other whole messages. At most 65,535 bytes; more than 256 are not read whole by the receiver.
/// A view: valid during the call that carries it.
struct MIDIPacket {
  std::uint64_t timeStamp = 0;  ///< nanoseconds of the host clock; 0 = now
  std::span<const std::uint8_t> bytes;
};

/// One Universal MIDI Packet event: whole messages of one to four words in host order, the most
/// significant byte first in the stream. A view: valid during the call that carries it.
struct MIDIEventPacket {
  std::uint64_t timeStamp = 0;  ///< nanoseconds of the host clock; 0 = now
  std::span<const std::uint32_t> words;
};

using MIDIPacketList = std::span<const MIDIPacket>;
using MIDIEventList = std::span<const MIDIEventPacket>;
