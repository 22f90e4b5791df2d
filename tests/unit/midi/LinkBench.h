// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "LinkTest.h"
#include "midi/memory/InMemoryMIDISystem.h"
#include "midi/simulator/SimulatedRecorder.h"

/// The whole link in memory: both managers, a delegate that does what the window does, and a
/// recorder to plug in, on a virtual clock.
class LinkBench : public MIDIManagerDelegate {
 public:
  explicit LinkBench(MIDIPacketKind kind) : system(std::make_shared<InMemoryMIDISystem>(kind)) {
    manager.setDelegate(this);
    manager.scanTarnDevice();
  }

  void plugIn() {
    if (_plug) return;
    _plug = system->plug("USB J4 TARN MIDI 1",
                         [this](std::span<const std::uint8_t> bytes) { recorder.receive(bytes); });
    recorder.plugIn({[this](const auto& bytes) { system->transmit(_plug->source, bytes); },
                     [this] { pullOut(); }});
  }
  void pullOut() {
    if (!_plug) return;
    recorder.pullOut();
    const auto plug = *std::exchange(_plug, std::nullopt);
    system->unplug(plug);
  }
  /// Long enough for the second of grace and a handshake with a healthy recorder.
  void connect() {
    plugIn();
    clock->advance(1.5);
  }
  [[nodiscard]] bool isPluggedIn() const { return _plug.has_value(); }
  [[nodiscard]] static TARNDeviceInfo& info() { return *MIDISequenceManager::getDeviceInfo(); }

  std::shared_ptr<VirtualClock> clock = std::make_shared<VirtualClock>();
  std::shared_ptr<InMemoryMIDISystem> system;
  InstalledPlatform platform{system, clock};
  MIDIManager manager;
  MIDISequenceManager sequences;
  SimulatedRecorder recorder{*clock};
  int connections = 0;
  int disconnections = 0;
  int updates = 0;

 private:
  void MIDIManagerFound() override { manager.connect(); }
  void MIDIManagerConnected() override {
    ++connections;
    sequences.startConnectSeq([this] { ++updates; });
  }
  void MIDIManagerDisconnected() override {
    ++disconnections;
    sequences.forceStopSeq();
  }
  void MIDIManagerReceivedData(const MIDIEventPacket& packet) override {
    sequences.receivedMidi(packet);
  }
  void MIDIManagerReceivedData_iOS13(const MIDIPacket& packet, bool isLast) override {
    sequences.receivedMidi_iOS13(packet, isLast);
  }

  std::optional<InMemoryMIDISystem::Plug> _plug;
};
