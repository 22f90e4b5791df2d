// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "midi/simulator/SimulatedLink.h"

/// What a simulated recorder is to be like and to do, from words with commas between them: those of
/// `RecorderWords`; ump, for a MIDI system of event lists; unplugged; and ACTION@SECONDS for what
/// happens later, with plug, unplug, report, eject, insert or behave.
///
/// Interface thread only.
class RecorderScript {
 public:
  /// A word that means nothing goes to `fault`, and does nothing.
  static RecorderScript parse(std::string_view text, std::string& fault);

  [[nodiscard]] MIDIPacketKind kind() const { return _kind; }
  /// Makes the recorder what it is to be, plugs it in, and sees to what happens later for as long
  /// as the script lives. The link must live longer.
  void play(SimulatedLink& link);

 private:
  using Action = void (*)(SimulatedLink& link);

  bool take(std::string_view word);
  bool takeAction(std::string_view word);

  MIDIPacketKind _kind = MIDIPacketKind::BytePackets;
  bool _isUnplugged = false;
  std::vector<std::string> _words;
  std::vector<std::pair<double, Action>> _actions;
  std::vector<std::unique_ptr<MIDITimer>> _timers;
};
