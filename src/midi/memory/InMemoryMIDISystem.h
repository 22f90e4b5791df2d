// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <set>
#include <span>
#include <string>

#include "midi/MIDISystem.h"
#include "midi/MIDIWireEvents.h"
#include "midi/MIDIWireReader.h"

/// A MIDI system without a machine: endpoints come and go by the calls below, and bytes go straight
/// from one end to the other. It carries one kind of packet, as made.
///
/// Everything happens inside the calls, on the interface thread.
class InMemoryMIDISystem final : public MIDISystem {
 public:
  using Receive = std::function<void(std::span<const std::uint8_t> bytes)>;

  /// The two ends of one plugged-in device.
  struct Plug {
    MIDIObjectRef source = 0;
    MIDIObjectRef destination = 0;
  };

  explicit InMemoryMIDISystem(MIDIPacketKind kind) : _kind(kind) {}

  // The far side.

  /// Both endpoints of a device, then one notification. `receive` gets what is sent to it, as bytes
  /// of the cable, packet by packet.
  Plug plug(const std::string& name, Receive receive = {});
  void unplug(const Plug& plug);
  /// One endpoint, its name readable or not, without a notification.
  MIDIObjectRef addEndpoint(MIDIDirection direction, std::optional<std::string> name,
                            Receive receive = {});
  void removeEndpoint(MIDIObjectRef endpoint);
  /// Tells every client.
  void notify(std::int32_t messageID);
  /// Bytes from the device, as on the cable: cut up, converted and handed to the connected ports.
  void transmit(MIDIObjectRef source, std::span<const std::uint8_t> bytes);
  /// A list as it is, to the connected ports; the rules for what arrives are the caller's.
  void deliver(MIDIObjectRef source, MIDIPacketList packets);
  void deliver(MIDIObjectRef source, MIDIEventList events);
  /// What later ports of this direction are refused with; 0 = they are not.
  void refusePorts(MIDIDirection direction, std::int32_t status) { _refusals[direction] = status; }
  [[nodiscard]] std::size_t openPorts() const { return _ports.size(); }
  [[nodiscard]] std::string clientName() const;

  // MIDISystem.

  [[nodiscard]] MIDIPacketKind packetKind() const override { return _kind; }
  MIDIObjectRef createClient(std::string_view name, MIDISystemClient& client) override;
  [[nodiscard]] std::vector<MIDIEndpoint> endpoints(MIDIDirection direction) const override;
  MIDICreatedPort createPort(MIDIObjectRef client, MIDIDirection direction,
                             std::string_view name) override;
  void connectSource(MIDIObjectRef port, MIDIObjectRef source) override;
  void disconnectSource(MIDIObjectRef port, MIDIObjectRef source) override;
  void dispose(MIDIObjectRef object) override;
  void send(MIDIObjectRef port, MIDIObjectRef destination, MIDIPacketList packets) override;
  void send(MIDIObjectRef port, MIDIObjectRef destination, MIDIEventList events) override;
  void flushOutput(MIDIObjectRef /*endpoint*/) override {}

 private:
  struct Client {
    std::string name;
    MIDISystemClient* told;
  };
  struct Port {
    MIDIObjectRef client;
    MIDIDirection direction;
    std::string name;
    std::set<MIDIObjectRef> sources;
  };
  struct Endpoint {
    MIDIDirection direction;
    std::optional<std::string> name;
    Receive receive;
    MIDIWireReader reader;
    MIDIWireEvents events;
  };

  [[nodiscard]] std::vector<MIDIObjectRef> clientsOf(MIDIObjectRef source) const;
  void deliverAsEvents(MIDIObjectRef source, const MIDIWireReader::Piece& piece);
  template <class List>
  void hand(MIDIObjectRef source, List list);
  [[nodiscard]] Receive receiverAt(MIDIObjectRef port, MIDIObjectRef destination) const;

  MIDIPacketKind _kind;
  MIDIObjectRef _last = 0;
  std::map<MIDIDirection, std::int32_t> _refusals;
  std::map<MIDIObjectRef, Client> _clients;
  std::map<MIDIObjectRef, Port> _ports;
  std::map<MIDIObjectRef, Endpoint> _endpoints;
};
