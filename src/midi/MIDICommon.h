// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "midi/GLPacket.h"

/// SysEx messages as Universal MIDI Packets (M2-104-UM, message type 3, 7-bit System Exclusive),
/// and two ways to run work on another thread. All of it may be called on any thread.
class MIDICommon {
 public:
  /// Types of messages that are used here.
  static constexpr std::uint8_t kSystemType = 1;
  static constexpr std::uint8_t kChannelType = 2;  ///< MIDI 1.0
  static constexpr std::uint8_t kSysExType = 3;    ///< of 7 bits

  /// The packets of one SysEx message of `size` bytes from F0 to F7, all in group 0. None where the
  /// first byte is not F0. The last byte is left out whatever it is; F0 F7 has no packets.
  static std::optional<std::vector<GLPacket>> convertByteToPacket(const std::uint8_t* bytes,
                                                                  std::int64_t size);
  /// One packet. `group` 0 to 15; `status` 0 complete, 1 start, 2 continue, 3 end; 0 to 6 payload
  /// bytes; the bytes that they do not fill are 0.
  static GLPacket createPackage(std::uint8_t group, std::uint8_t status, int realByteCount,
                                const std::uint8_t* realData);

  /// Three of the four fields of a message's first word, from the top.
  static constexpr std::uint8_t messageType(std::uint32_t word) { return nibble(word, 28); }
  static constexpr std::uint8_t messageStatus(std::uint32_t word) { return nibble(word, 20); }
  /// For a SysEx packet: the number of payload bytes.
  static constexpr std::uint8_t messageChannel(std::uint32_t word) { return nibble(word, 16); }

  /// Runs the task on the main thread and returns when it is done: at once there, otherwise as soon
  /// as the main thread's event loop comes to it. A thread that the main thread waits for must not
  /// call it. Without a QCoreApplication any thread counts as the main one.
  static void runOnUIThread(const std::function<void()>& task);

  // No program calls these; their names are the system's interfaces'.

  /// The second field.
  static constexpr std::uint8_t messageGroup(std::uint32_t word) { return nibble(word, 24); }
  /// Runs the task some time later on a worker; tasks may run side by side. Where no thread can be
  /// started it runs at once on the caller's, with a line in the log.
  static void runBackground(const std::function<void()>& task);

 private:
  static constexpr std::uint8_t nibble(std::uint32_t word, int shift) {
    return static_cast<std::uint8_t>((word >> shift) & 0xF);
  }
};
