// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <span>

#include "midi/MIDIClock.h"
#include "midi/alsa/AlsaEvent.h"

/// What waits to be sent. Events go at once while a small allowance lasts, and then no faster than
/// a MIDI cable: a device driver that is handed more than its buffer holds loses the rest without
/// a word. An event that finds the sequencer or its receiver full is tried again, for a while.
///
/// Bounded: what does not fit is dropped whole, event by event. The first of what is lost in a row
/// is a line in the log. Interface thread only.
class AlsaOutput {
 public:
  struct Item {
    std::uint8_t port = 0;  ///< ours
    AlsaAddress to;
    AlsaPayload payload;
  };
  /// Not negative when it has gone, else the negative error.
  using Write = std::function<int(const Item& item)>;

  static constexpr std::size_t kAllowance = 3000;  ///< bytes; drivers hold 4,096
  static constexpr double kBytesPerSecond = 3125;  ///< a MIDI cable (MIDI 1.0, 31.25 kbaud)
  static constexpr std::size_t kMostWaiting = 262'144;
  static constexpr double kRetrySeconds = 0.01;
  static constexpr double kPatienceSeconds = 5.0;  ///< with a receiver that stays full

  /// `clock` must live longer.
  AlsaOutput(MIDIClock& clock, Write write) : _clock(clock), _write(std::move(write)) {}

  void send(Item item);
  /// Drops what waits for this receiver.
  void drop(AlsaAddress to);

 private:
  void run();
  [[nodiscard]] bool writeFirst();
  [[nodiscard]] bool isPatienceOver();
  void refill();
  void later(double seconds);
  void takeFirst();
  void note(int status);
  static double cost(const Item& item);

  MIDIClock& _clock;
  Write _write;
  std::deque<Item> _waiting;
  std::size_t _waitingBytes = 0;
  double _allowance = kAllowance;
  std::uint64_t _refilledAt = 0;
  bool _isLosing = false;        ///< the last event was lost
  std::uint64_t _fullSince = 0;  ///< 0: the last attempt went well
  std::unique_ptr<MIDITimer> _timer;
};
