// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "midi/MIDIClock.h"
#include "midi/MIDISystem.h"

/// What the device link of this process stands on. Interface thread only.
class MIDIPlatform {
 public:
  /// Takes effect for managers that are made later. Without it there is no MIDI, and the time is
  /// the real one.
  static void install(std::shared_ptr<MIDISystem> system, std::shared_ptr<MIDIClock> clock);

  static std::shared_ptr<MIDISystem> system();
  static MIDIClock& clock();
  /// The same clock, for another platform that goes on with it.
  static std::shared_ptr<MIDIClock> sharedClock();
};
