// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "LinkTest.h"
#include "midi/RecorderLink.h"
#include "midi/simulator/SimulatedLink.h"

/// The whole link in memory: both managers, the way between them, and a recorder to plug in, on a
/// virtual clock.
class LinkBench {
 public:
  explicit LinkBench(MIDIPacketKind kind) : link(kind, clock) { way.open(); }

  void plugIn() { link.plugIn(); }
  void pullOut() { link.pullOut(); }
  /// Long enough for the second of grace and a handshake with a healthy recorder.
  void connect() {
    plugIn();
    clock->advance(1.5);
  }
  [[nodiscard]] bool isPluggedIn() const { return link.isPluggedIn(); }
  [[nodiscard]] static TARNDeviceInfo& info() { return *MIDISequenceManager::getDeviceInfo(); }

  std::shared_ptr<SteppedMIDIClock> clock = std::make_shared<SteppedMIDIClock>();
  SimulatedLink link;
  std::shared_ptr<InMemoryMIDISystem> system = link.system();
  InstalledPlatform platform{system, clock};
  MIDIManager manager;
  MIDISequenceManager sequences;
  SimulatedRecorder& recorder = link.recorder();
  int connections = 0;
  int disconnections = 0;
  int updates = 0;
  RecorderLink way{
      {[this] { ++connections; }, [this] { ++updates; }, [this] { ++disconnections; }}};
};
