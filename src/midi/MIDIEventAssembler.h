// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "midi/MIDIPackets.h"
#include "midi/MIDIReceiveBuffer.h"

/// Puts messages together from Universal MIDI Packets (M2-104-UM). Everything that
/// lasts is in the buffer. Stateless; one thread at a time for one buffer.
class MIDIEventAssembler {
 public:
  /// Adds the messages of one event packet to the buffer; true when one became complete. Kept on
  /// purpose: what follows the first complete message in the same packet is skipped, and a 128-bit
  /// message ends the packet.
  static bool convertMidiPacket2ByteArr(MIDIReceiveBuffer& buffer, const MIDIEventPacket& packet);

  /// Words of a message that begins with this word, by its type: 1 to 4.
  static int count_word_in_message(std::uint32_t word);
  /// One message of one to three words; true when a message is complete.
  static bool convetMessageInfo(MIDIReceiveBuffer& buffer, std::span<const std::uint32_t> message);
  /// A SysEx packet of two words.
  static bool processSysEx(MIDIReceiveBuffer& buffer, std::span<const std::uint32_t> message);
  /// A MIDI 1.0 message of one word. F0 stands before it: every message that is handed on has one.
  static bool processMessage1(MIDIReceiveBuffer& buffer, std::uint32_t word);

 private:
  static std::uint8_t midi2ToMidi1DefaultTranslation(std::uint32_t word);
  static void insert_to_buffer(MIDIReceiveBuffer& buffer, std::span<const std::uint32_t> message);
};
