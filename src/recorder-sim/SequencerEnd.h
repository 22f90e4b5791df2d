// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "midi/QtMIDIClock.h"
#include "recorder-sim/CableEnd.h"

class AlsaOutput;
class AlsaSequencer;
class QSocketNotifier;

/// A port of the ALSA sequencer, which anyone may connect to.
class SequencerEnd final : public CableEnd {
 public:
  SequencerEnd(std::string portName, Told told);
  ~SequencerEnd() override;

  std::string plugIn() override;
  void pullOut() override;
  void transmit(std::span<const std::uint8_t> bytes) override;

 private:
  std::string open();
  void readable();

  std::string _portName;
  int _port = -1;
  QtMIDIClock _clock;
  std::unique_ptr<AlsaSequencer> _sequencer;
  std::unique_ptr<AlsaOutput> _output;
  std::unique_ptr<QSocketNotifier> _notifier;
};
