// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "app/MainView.h"
#include "midi/alsa/AlsaMIDISystem.h"
#include "midi/simulator/SimulatedLink.h"

/// Puts a MIDI system under the device link: the machine's, or one with a simulated recorder in it.
/// Made before the window, lives until after it. Interface thread.
class DeviceLink {
 public:
  explicit DeviceLink(bool isSimulated);
  DeviceLink(const DeviceLink&) = delete;
  DeviceLink& operator=(const DeviceLink&) = delete;
  ~DeviceLink();

  /// Keeps the view told: that the recorder is simulated, or why there is no MIDI.
  void attach(MainView& view);

 private:
  void showReason(MainView& view) const;

  std::unique_ptr<SimulatedLink> _simulated;
  std::shared_ptr<AlsaMIDISystem> _machine;
};
