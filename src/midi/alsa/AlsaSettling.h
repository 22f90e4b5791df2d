// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "midi/MIDIClock.h"

/// Turns a burst of announcements into one change: a device announces its client, its ports and
/// its names one after the other. Interface thread only.
class AlsaSettling {
 public:
  static constexpr double kQuietSeconds = 0.15;
  static constexpr double kLongestSeconds = 1.0;

  /// `settled` is called when nothing has been announced for a while, and at the latest a second
  /// after the first announcement. `clock` must live longer.
  AlsaSettling(MIDIClock& clock, std::function<void()> settled)
      : _clock(clock), _settled(std::move(settled)) {}

  /// Something was announced.
  void disturb();

 private:
  void settle();

  MIDIClock& _clock;
  std::function<void()> _settled;
  std::unique_ptr<MIDITimer> _quiet;
  std::unique_ptr<MIDITimer> _longest;
};
