// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "midi/MIDIPackets.h"

/// A client, a port or an endpoint of the MIDI system; 0 = none.
using MIDIObjectRef = std::uint32_t;

/// Which of the two lists a system carries, in both directions.
enum class MIDIPacketKind { BytePackets, EventLists };

/// Seen from the program: it receives from sources and sends to destinations.
enum class MIDIDirection { Source, Destination };

/// One end of a device that is plugged in.
struct MIDIEndpoint {
  MIDIObjectRef reference = 0;
  std::optional<std::string> displayName;  ///< as players show it; none where it cannot be read
};

/// A new port, or why there is none.
struct MIDICreatedPort {
  std::int32_t status = 0;  ///< 0 = success, else the system's own code
  MIDIObjectRef port = 0;   ///< 0 unless the status is 0
};

/// What a MIDI system tells its client, always on the interface thread.
class MIDISystemClient {
 public:
  static constexpr std::int32_t kObjectAdded = 2;
  static constexpr std::int32_t kObjectRemoved = 3;

  virtual ~MIDISystemClient() = default;
  /// The set-up has changed; `messageID` is one of the two above or something to be ignored.
  virtual void setupChanged(std::int32_t messageID) = 0;
  /// Data for an input port, from a system of byte packets.
  virtual void received(MIDIPacketList packets) = 0;
  /// Data for an input port, from a system of event lists.
  virtual void received(MIDIEventList events) = 0;
};

/// The platform's MIDI, as little of it as the link needs.
///
/// Everything is called, and calls back, on the interface thread. Nothing waits, except that a back
/// end may wait a moment at its end, and longer where no thread can be had for what waits. A call
/// about an object that is not there (any more) does nothing. A system without MIDI has no
/// endpoints and makes no ports; it is not an error to ask.
///
/// What arrives keeps to three rules, which the back end sees to: real-time messages are left out,
/// since they may stand in the middle of a SysEx message; a byte packet holds nothing else beside
/// a SysEx message or a part of one, and at most 256 bytes; an event packet holds one message.
class MIDISystem {
 public:
  MIDISystem() = default;
  MIDISystem(const MIDISystem&) = delete;
  MIDISystem& operator=(const MIDISystem&) = delete;
  virtual ~MIDISystem() = default;

  /// The same as long as anything is plugged in.
  [[nodiscard]] virtual MIDIPacketKind packetKind() const = 0;

  /// A client of this name. `client` is told of changes until the reference is disposed of.
  virtual MIDIObjectRef createClient(std::string_view name, MIDISystemClient& client) = 0;

  /// What is plugged in now, in the system's order.
  [[nodiscard]] virtual std::vector<MIDIEndpoint> endpoints(MIDIDirection direction) const = 0;

  /// A port of this name. Data from a `Source` port goes to the client of `client`.
  virtual MIDICreatedPort createPort(MIDIObjectRef client, MIDIDirection direction,
                                     std::string_view name) = 0;

  /// Data of this source arrives at this input port, until disconnected, disposed of or unplugged.
  virtual void connectSource(MIDIObjectRef port, MIDIObjectRef source) = 0;
  virtual void disconnectSource(MIDIObjectRef port, MIDIObjectRef source) = 0;

  /// Ends a port, or a client with its ports.
  virtual void dispose(MIDIObjectRef object) = 0;

  /// Sends one list in its order. The bytes are copied before the call returns. Only the kind of
  /// list that the system carries is sent.
  virtual void send(MIDIObjectRef port, MIDIObjectRef destination, MIDIPacketList packets) = 0;
  virtual void send(MIDIObjectRef port, MIDIObjectRef destination, MIDIEventList events) = 0;

  /// Drops what has been sent to, or received from, the endpoint and is not delivered yet.
  virtual void flushOutput(MIDIObjectRef endpoint) = 0;
};
