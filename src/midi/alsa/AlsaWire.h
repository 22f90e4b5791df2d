// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <alsa/asoundlib.h>

#include <memory>
#include <optional>

#include "midi/MIDISystem.h"
#include "midi/alsa/AlsaEvent.h"

/// One of the two ways to carry MIDI over an open sequencer. Interface thread only; nothing blocks.
class AlsaWire {
 public:
  AlsaWire() = default;
  AlsaWire(const AlsaWire&) = delete;
  AlsaWire& operator=(const AlsaWire&) = delete;
  virtual ~AlsaWire() = default;

  [[nodiscard]] virtual MIDIPacketKind kind() const = 0;
  /// Not negative: an event was read. -EAGAIN: there is none. -ENOSPC: some were lost.
  virtual int read(AlsaEvent& event) = 0;
  /// Not negative: handed over, without waiting. -EAGAIN, -ENOMEM: full.
  virtual int write(std::uint8_t port, AlsaAddress to, const AlsaPayload& payload) = 0;

  /// Everything of an event but its payload.
  static AlsaEvent headOf(const snd_seq_event_t& raw);
};

/// `sequencer` must live longer. The second is none where alsa-lib or the kernel has no Universal
/// MIDI Packets.
std::unique_ptr<AlsaWire> makeAlsaByteWire(snd_seq_t* sequencer);
std::unique_ptr<AlsaWire> makeAlsaEventWire(snd_seq_t* sequencer);

/// The kind that is asked for, or none; without a wish the best there is.
std::unique_ptr<AlsaWire> chooseAlsaWire(snd_seq_t* sequencer, std::optional<MIDIPacketKind> kind);

/// The kind that the variable MIXDECK_MIDI asks for ("bytes" or "ump"), or none.
std::optional<MIDIPacketKind> alsaKindOfEnvironment();
