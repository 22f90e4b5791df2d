// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "midi/MIDIWireReader.h"
#include "midi/QtMIDIClock.h"
#include "recorder-sim/CableEnd.h"

class AlsaOutput;
class AlsaSequencer;
class QSocketNotifier;

/// A port of the ALSA sequencer, which anyone may connect to. It sends as drivers of devices do:
/// message by message, what is long in pieces of at most 256 bytes, only real-time bytes are left
/// out. If wished so it sends all that it gets at once, as it is, in one event.
class SequencerEnd final : public CableEnd {
 public:
  SequencerEnd(std::string portName, bool sendsWhole, Told told,
               std::string devicePath = "/dev/snd/seq");
  ~SequencerEnd() override;

  std::string plugIn() override;
  void pullOut() override;
  void transmit(std::span<const std::uint8_t> bytes) override;

 private:
  std::string open();
  void send(std::vector<std::uint8_t> bytes);
  void readable();
  void lose();

  std::string _portName;
  bool _sendsWhole;
  std::string _devicePath;
  int _port = -1;
  MIDIWireReader _reader;
  QtMIDIClock _clock;
  std::unique_ptr<AlsaSequencer> _sequencer;
  std::unique_ptr<AlsaOutput> _output;
  std::unique_ptr<QSocketNotifier> _notifier;
};
