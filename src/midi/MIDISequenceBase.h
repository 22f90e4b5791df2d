// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

/// One exchange of requests and replies with the recorder. The manager starts it, feeds it with
/// every complete message while it is the current one, and drops it when it has completed.
///
/// There is one time-out in the process, shared by all sequences: starting one cancels the one that
/// runs, whoever started it. Interface thread only; the time-out may be started on any thread.
class MIDISequenceBase {
 public:
  using Completion = std::function<void()>;

  MIDISequenceBase() = default;
  MIDISequenceBase(const MIDISequenceBase&) = delete;
  MIDISequenceBase& operator=(const MIDISequenceBase&) = delete;
  /// Cancels the time-out if it is this sequence's.
  virtual ~MIDISequenceBase();

  /// Sends the first request.
  virtual void startSequence() {}
  /// A message from F0 to the byte before F7, of `length` bytes, valid during the call.
  virtual void receivedMidi(const std::uint8_t* /*bytes*/, std::int32_t /*length*/) {}
  /// The request with this description was not answered.
  virtual void sequenceTimeOut(const std::string& /*description*/) {}
  /// Ends the sequence without a completion.
  virtual void dispose();
  /// True when nothing is waited for (any more).
  [[nodiscard]] virtual bool didCompleted() const { return true; }

  /// Starts the time-out of 2.0 seconds, with this description.
  void markTimeOutWithDescription(const std::string& description);
  /// Cancels the time-out, whoever started it.
  static void cleanTimeOutTimer();

  /// Called by the manager after each complete message that finds the sequence completed.
  [[nodiscard]] const Completion& onCompleted() const { return _onCompleted; }
  void setOnCompleted(Completion completion) { _onCompleted = std::move(completion); }

  // No sequence of a program calls these; their names are the system's interfaces'.

  /// Start the time-out: 2.0 seconds and the last description, unless they are given.
  void markTimeOut();
  void markTimeOut(double seconds);
  void markTimeOut(const std::string& description, double seconds);
  [[nodiscard]] const std::string& SEQ_Name() const { return _seqName; }
  void setSEQ_Name(const std::string& name) { _seqName = name; }

 private:
  std::string _timeout_description;
  std::string _seqName;
  Completion _onCompleted;
};
