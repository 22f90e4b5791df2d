// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>

#include "midi/MIDIClock.h"
#include "midi/memory/InMemoryMIDISystem.h"
#include "midi/simulator/SimulatedRecorder.h"

/// A recorder and a MIDI system of this process, with a cable between them: for trying the program
/// without a recorder, and for tests.
///
/// It must outlive nothing: managers keep the system, and at its end the recorder is pulled out.
/// Interface thread only; with the usual clock the thread needs an event loop.
class SimulatedLink {
 public:
  /// What the recorder's endpoints are called.
  static constexpr const char* kName = "J4 TARN simulated";

  /// Unplugged. Without a clock it takes the real one.
  explicit SimulatedLink(MIDIPacketKind kind = MIDIPacketKind::BytePackets,
                         std::shared_ptr<MIDIClock> clock = {});
  SimulatedLink(const SimulatedLink&) = delete;
  SimulatedLink& operator=(const SimulatedLink&) = delete;
  ~SimulatedLink();

  /// Puts the system and the clock under the device link; before the managers are made.
  void install() const;

  /// Do nothing where that is so already. Whoever listens is told inside the call.
  void plugIn();
  void pullOut();
  [[nodiscard]] bool isPluggedIn() const { return _plug.has_value(); }

  [[nodiscard]] SimulatedRecorder& recorder() { return _recorder; }
  [[nodiscard]] const std::shared_ptr<InMemoryMIDISystem>& system() const { return _system; }
  [[nodiscard]] const std::shared_ptr<MIDIClock>& clock() const { return _clock; }

 private:
  void transmit(const SimulatedRecorder::Bytes& bytes);

  std::shared_ptr<MIDIClock> _clock;
  std::shared_ptr<InMemoryMIDISystem> _system;
  SimulatedRecorder _recorder;
  std::optional<InMemoryMIDISystem::Plug> _plug;
};
