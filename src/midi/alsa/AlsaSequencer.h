// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <alsa/asoundlib.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "midi/MIDISystem.h"
#include "midi/alsa/AlsaEvent.h"

class AlsaWire;

/// One client of the sequencer, open from the start to the end of its life, with room for long
/// SysEx messages both ways. Interface thread only, but for the end, which
/// `AlsaClosing` leaves to a thread. Nothing waits but `deletePort` and the end: the
/// kernel plays out what a driver was still given, for up to ten seconds.
class AlsaSequencer {
 public:
  /// What is done with a port of ours. Only one for both is shown to others, as a device is: a
  /// second program like this one would take any other for a device, and its end for a removal.
  enum class Use { Receive, Send, Both, Private };

  struct Opened {
    std::unique_ptr<AlsaSequencer> sequencer;
    std::string problem;  ///< a sentence for people where there is none
  };

  /// `kind` none: Universal MIDI Packets where they are, else bytes.
  static Opened open(const std::string& devicePath, std::optional<MIDIPacketKind> kind);
  AlsaSequencer(const AlsaSequencer&) = delete;
  AlsaSequencer& operator=(const AlsaSequencer&) = delete;
  ~AlsaSequencer();

  [[nodiscard]] MIDIPacketKind kind() const;
  /// Readable when `read` has something.
  [[nodiscard]] int descriptor() const;

  void setName(const std::string& name);
  /// The port's number, or a negative error.
  int createPort(const std::string& name, Use use);
  void deletePort(int port);
  /// 0, or a negative error.
  int connectFrom(std::uint8_t port, AlsaAddress source);
  void disconnectFrom(std::uint8_t port, AlsaAddress source);
  int connectTo(std::uint8_t port, AlsaAddress destination);
  /// Announcements of what comes and goes, to a port made for them: 0, or a negative error, after
  /// which they may be asked for again.
  int connectAnnouncements();
  /// Everybody else's ports, in the sequencer's order.
  [[nodiscard]] std::vector<AlsaPort> ports() const;

  /// Whoever listens to a port of ours.
  static AlsaAddress subscribers();

  /// As `AlsaWire`.
  int read(AlsaEvent& event);
  /// There are more events, although the descriptor does not tell.
  [[nodiscard]] bool hasMore() const;
  int write(std::uint8_t port, AlsaAddress to, const AlsaPayload& payload);

 private:
  explicit AlsaSequencer(snd_seq_t* sequencer);
  void makeRoom();

  snd_seq_t* _sequencer;
  int _announcements = -1;  ///< the port for them
  std::unique_ptr<AlsaWire> _wire;
};
