// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "midi/MIDISystem.h"

/// A machine without MIDI: nothing is plugged in, nothing can be opened.
class AbsentMIDISystem final : public MIDISystem {
 public:
  static constexpr std::int32_t kNotThere = -1;

  [[nodiscard]] MIDIPacketKind packetKind() const override { return MIDIPacketKind::BytePackets; }
  MIDIObjectRef createClient(std::string_view /*name*/, MIDISystemClient& /*client*/) override {
    return 0;
  }
  [[nodiscard]] std::vector<MIDIEndpoint> endpoints(MIDIDirection /*direction*/) const override {
    return {};
  }
  MIDICreatedPort createPort(MIDIObjectRef /*client*/, MIDIDirection /*direction*/,
                             std::string_view /*name*/) override {
    return {kNotThere, 0};
  }
  void connectSource(MIDIObjectRef /*port*/, MIDIObjectRef /*source*/) override {}
  void disconnectSource(MIDIObjectRef /*port*/, MIDIObjectRef /*source*/) override {}
  void dispose(MIDIObjectRef /*object*/) override {}
  void send(MIDIObjectRef /*port*/, MIDIObjectRef /*to*/, MIDIPacketList /*packets*/) override {}
  void send(MIDIObjectRef /*port*/, MIDIObjectRef /*to*/, MIDIEventList /*events*/) override {}
  void flushOutput(MIDIObjectRef /*endpoint*/) override {}
};
