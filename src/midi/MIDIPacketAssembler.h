// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "midi/MIDIPackets.h"
#include "midi/MIDIReceiveBuffer.h"

/// Puts a SysEx message together from byte packets. One thread at a time.
class MIDIPacketAssembler {
 public:
  /// Adds a packet to the message in the buffer; true when that is complete, its F7 left out. A
  /// packet that begins with F0 begins a message, and so does any packet after a complete one: the
  /// F0 that was lost is put before it. A message ends where a packet ends with F7. Of a packet of
  /// more than 256 bytes only 256 are kept, but all are counted.
  bool storeToBuffer(MIDIReceiveBuffer& buffer, const MIDIPacket& newData);

 private:
  void place(MIDIReceiveBuffer& buffer, std::span<const std::uint8_t> kept, std::size_t length);

  bool _is_message_received_finish_ios13 = true;
};
