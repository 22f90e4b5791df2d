// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

#include "midi/MIDIManagerDelegate.h"
#include "midi/MIDISequenceBase.h"
#include "midi/TARNDeviceInfo.h"

/// The way from a recorder that is plugged in to its record: opens the link when the recorder is
/// found, goes through the handshake, hands on what is received, and gives up whatever waits when
/// the recorder goes.
///
/// It is the delegate of the process's `MIDIManager`, or is called name for name by the object that
/// is, and drives the process's `MIDISequenceManager`. Interface thread only.
class RecorderLink final : public MIDIManagerDelegate {
 public:
  /// Who is told. A callable that is left out is not called. Each may take the recorder away, none
  /// may end the link.
  struct Listener {
    std::function<void()> connected;  ///< the link is up; the first request goes out next
    /// The handshake has come to its end, or the recorder has told more since. Never after a
    /// handshake that timed out: its record is not whole.
    std::function<void()> recordChanged;
    std::function<void()> lost;  ///< nothing waits any more
  };

  explicit RecorderLink(Listener listener) : _listener(std::move(listener)) {}

  /// Becomes the manager's delegate and looks for a recorder.
  void open();

  /// A handshake is under way: it has not come to its end and has not timed out.
  [[nodiscard]] bool isAsking() const;
  /// The handshake has come to its end, and the recorder is still there.
  [[nodiscard]] bool isReady() const { return _phase == Phase::Ready; }
  /// Where a handshake waited last, 2 to 14, also when it has come to its end or the recorder has
  /// gone; 0 = none has begun.
  [[nodiscard]] std::int64_t step() const { return _step; }
  /// In a sequence's completion: the sequence ended with the message that is being handed on. One
  /// that timed out is completed too, but only by the next message, whatever that is.
  [[nodiscard]] bool isAnswered() const { return _wasRunning; }
  /// What is known of the recorder; empty before the first handshake.
  [[nodiscard]] static std::shared_ptr<TARNDeviceInfo> record();

  void MIDIManagerFound() override;
  void MIDIManagerConnected() override;
  void MIDIManagerDisconnected() override;
  void MIDIManagerReceivedData(const MIDIEventPacket& packet) override;
  void MIDIManagerReceivedData_iOS13(const MIDIPacket& packet, bool isLast) override;

 private:
  enum class Phase { Absent, Asking, Ready };

  MIDISequenceBase::Completion completion();
  void completed();
  void noteRunning();
  void noteStep();

  Listener _listener;
  Phase _phase = Phase::Absent;
  std::int64_t _step = 0;
  bool _wasRunning = false;
};
