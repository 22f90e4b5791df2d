// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "midi/MIDISystem.h"
#include "midi/MIDIWireReader.h"

/// A MIDI system between a client and the real one that shows each whole message that passes, both
/// ways, before it is passed on. One client. Interface thread only.
class DeviceTap final : public MIDISystem, private MIDISystemClient {
 public:
  enum class Way { Sent, Received };
  using Bytes = std::vector<std::uint8_t>;
  using Show = std::function<void(Way way, const Bytes& message)>;

  explicit DeviceTap(std::shared_ptr<MIDISystem> system);
  void setShow(Show show) { _show = std::move(show); }

  [[nodiscard]] MIDIPacketKind packetKind() const override { return _system->packetKind(); }
  MIDIObjectRef createClient(std::string_view name, MIDISystemClient& client) override;
  [[nodiscard]] std::vector<MIDIEndpoint> endpoints(MIDIDirection direction) const override {
    return _system->endpoints(direction);
  }
  MIDICreatedPort createPort(MIDIObjectRef client, MIDIDirection direction,
                             std::string_view name) override {
    return _system->createPort(client, direction, name);
  }
  void connectSource(MIDIObjectRef port, MIDIObjectRef source) override {
    _system->connectSource(port, source);
  }
  void disconnectSource(MIDIObjectRef port, MIDIObjectRef source) override {
    _system->disconnectSource(port, source);
  }
  void dispose(MIDIObjectRef object) override { _system->dispose(object); }
  void send(MIDIObjectRef port, MIDIObjectRef destination, MIDIPacketList packets) override;
  void send(MIDIObjectRef port, MIDIObjectRef destination, MIDIEventList events) override;
  void flushOutput(MIDIObjectRef endpoint) override { _system->flushOutput(endpoint); }

 private:
  /// One way's messages, put together.
  class Joiner {
   public:
    std::vector<Bytes> feed(std::span<const std::uint8_t> bytes);
    std::vector<Bytes> feed(const MIDIEventPacket& packet);

   private:
    // More than the link takes; what is longer is shown in parts.
    static constexpr std::size_t kMost = 1 << 16;

    MIDIWireReader _reader;
    Bytes _open;
  };

  void setupChanged(std::int32_t messageID) override { _client->setupChanged(messageID); }
  void received(MIDIPacketList packets) override;
  void received(MIDIEventList events) override;
  void show(Way way, const std::vector<Bytes>& messages) const;

  std::shared_ptr<MIDISystem> _system;
  Show _show;
  MIDISystemClient* _client = nullptr;
  Joiner _sent;
  Joiner _received;
};
