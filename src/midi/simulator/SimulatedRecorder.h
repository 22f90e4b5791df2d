// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "midi/MIDIClock.h"
#include "midi/simulator/RecorderRequest.h"
#include "midi/simulator/RecorderState.h"

/// How a recorder goes wrong at a request.
enum class RecorderFault {
  None,
  Silent,            ///< no answer
  Slow,              ///< the right answer after three seconds
  WrongLength,       ///< one byte more than it should have
  LongIdentity,      ///< an identity of 15 bytes without its F7; for other requests no fault
  Garbage,           ///< a message of noise
  SplitAtEveryByte,  ///< each byte by itself
  Merged,            ///< the answer and a card report in one
  Interleaved,       ///< clock bytes inside, notes with a running status around
  Disappear          ///< pulled out instead of answering
};

/// The recorder's end of the cable: takes the bytes of the program's messages and answers them,
/// or does not. It knows no MIDI system; whoever connects it carries the bytes.
///
/// Interface thread only. Answers come from timers of the clock, never from inside a call.
class SimulatedRecorder {
 public:
  using Bytes = RecorderMessages::Bytes;

  struct Cable {
    std::function<void(const Bytes& bytes)> transmit;  ///< one piece of what is on the wire
    std::function<void()> pullOut;                     ///< for `RecorderFault::Disappear`
  };

  /// `clock` must live longer.
  explicit SimulatedRecorder(MIDIClock& clock, RecorderState state = {});
  SimulatedRecorder(const SimulatedRecorder&) = delete;
  SimulatedRecorder& operator=(const SimulatedRecorder&) = delete;

  void plugIn(Cable cable);
  /// Answers that have not gone yet never will.
  void pullOut();

  /// Bytes from the program, in pieces of any size.
  void receive(std::span<const std::uint8_t> bytes);

  /// At each such request from now on.
  void misbehave(RecorderRequest at, RecorderFault fault) { _faults[at] = fault; }
  void behave() { _faults.clear(); }
  /// Sends a card report that nobody asked for.
  void reportCard();

  [[nodiscard]] RecorderState& state() { return _state; }
  /// Every whole message that came, F0 to F7.
  [[nodiscard]] const std::vector<Bytes>& received() const { return _received; }

 private:
  void take(const Bytes& message);
  void carryOut(RecorderRequest request, const Bytes& message);
  [[nodiscard]] Bytes answerTo(RecorderRequest request) const;
  [[nodiscard]] std::vector<Bytes> spoilt(RecorderFault fault, RecorderRequest request) const;
  void transmitLater(double seconds, std::vector<Bytes> pieces);
  void later(double seconds, std::function<void()> work);

  MIDIClock& _clock;
  RecorderState _state;
  Cable _cable;
  Bytes _incoming;
  std::vector<Bytes> _received;
  std::map<RecorderRequest, RecorderFault> _faults;
  std::map<std::uint64_t, std::unique_ptr<MIDITimer>> _timers;
  std::uint64_t _lastTimer = 0;
};
