// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "midi/MIDISystem.h"

/// Writes down what is asked of it. References: the client 1, the input port 11, the output
/// port 12; endpoints as given.
class RecordingMIDISystem final : public MIDISystem {
 public:
  using Bytes = std::vector<std::uint8_t>;
  using Words = std::vector<std::uint32_t>;

  explicit RecordingMIDISystem(MIDIPacketKind kind) : _kind(kind) {}

  std::vector<MIDIEndpoint> sources;
  std::vector<MIDIEndpoint> destinations;
  std::int32_t inputPortStatus = 0;
  std::int32_t outputPortStatus = 0;
  std::vector<std::string> calls;
  std::vector<std::vector<std::pair<std::uint64_t, Bytes>>> packetLists;
  std::vector<std::vector<std::pair<std::uint64_t, Words>>> eventLists;
  MIDISystemClient* client = nullptr;

  /// Both endpoints of a recorder, 21 and 22.
  void plugRecorder() {
    sources = {{21, "J4 TARN"}};
    destinations = {{22, "J4 TARN"}};
  }

  [[nodiscard]] MIDIPacketKind packetKind() const override { return _kind; }
  MIDIObjectRef createClient(std::string_view name, MIDISystemClient& told) override {
    client = &told;
    calls.push_back("client " + std::string(name));
    return 1;
  }
  [[nodiscard]] std::vector<MIDIEndpoint> endpoints(MIDIDirection direction) const override {
    return direction == MIDIDirection::Source ? sources : destinations;
  }
  MIDICreatedPort createPort(MIDIObjectRef owner, MIDIDirection direction,
                             std::string_view name) override {
    const bool isInput = direction == MIDIDirection::Source;
    note((isInput ? "input of " : "output of ") + std::to_string(owner) + " " + std::string(name));
    const std::int32_t status = isInput ? inputPortStatus : outputPortStatus;
    if (status != 0) return {status, 0};
    return {0, isInput ? MIDIObjectRef{11} : MIDIObjectRef{12}};
  }
  void connectSource(MIDIObjectRef port, MIDIObjectRef source) override {
    note("connect " + std::to_string(port) + " " + std::to_string(source));
  }
  void disconnectSource(MIDIObjectRef port, MIDIObjectRef source) override {
    note("disconnect " + std::to_string(port) + " " + std::to_string(source));
  }
  void dispose(MIDIObjectRef object) override {
    if (object != 0) note("dispose " + std::to_string(object));
  }
  void send(MIDIObjectRef port, MIDIObjectRef destination, MIDIPacketList packets) override {
    note("send " + std::to_string(port) + " " + std::to_string(destination));
    packetLists.emplace_back();
    for (const MIDIPacket& packet : packets) {
      packetLists.back().emplace_back(packet.timeStamp,
                                      Bytes(packet.bytes.begin(), packet.bytes.end()));
    }
  }
  void send(MIDIObjectRef port, MIDIObjectRef destination, MIDIEventList events) override {
    note("send " + std::to_string(port) + " " + std::to_string(destination));
    eventLists.emplace_back();
    for (const MIDIEventPacket& event : events) {
      eventLists.back().emplace_back(event.timeStamp,
                                     Words(event.words.begin(), event.words.end()));
    }
  }
  void flushOutput(MIDIObjectRef endpoint) override { note("flush " + std::to_string(endpoint)); }

 private:
  void note(const std::string& call) { calls.push_back(call); }

  MIDIPacketKind _kind;
};
