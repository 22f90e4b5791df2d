// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "midi/MIDIPackets.h"

/// Who is told of the link. Every answer is optional. Calls come on the interface thread.
///
/// The usual delegate connects in `MIDIManagerFound`, starts the connect sequence in
/// `MIDIManagerConnected`, hands received data to the sequence manager, and in
/// `MIDIManagerDisconnected` calls its `forceStopSeq`: a sequence that waits for a recorder that is
/// gone would hold up the next one.
class MIDIManagerDelegate {
 public:
  MIDIManagerDelegate() = default;
  MIDIManagerDelegate(const MIDIManagerDelegate&) = delete;
  MIDIManagerDelegate& operator=(const MIDIManagerDelegate&) = delete;
  virtual ~MIDIManagerDelegate() = default;

  /// Both endpoints of the recorder were seen.
  virtual void MIDIManagerFound() {}
  /// The link is up, and the recorder has had its second of grace.
  virtual void MIDIManagerConnected() {}
  /// The recorder went away.
  virtual void MIDIManagerDisconnected() {}
  /// One event packet, where the system carries event lists.
  virtual void MIDIManagerReceivedData(const MIDIEventPacket& /*packet*/) {}
  /// One byte packet, where the system carries byte packets; `isLast` of its list.
  virtual void MIDIManagerReceivedData_iOS13(const MIDIPacket& /*packet*/, bool /*isLast*/) {}

  /// Expires with the delegate, so that it can be held weakly.
  [[nodiscard]] std::weak_ptr<const void> life() const { return _life; }

 private:
  std::shared_ptr<const void> _life = std::make_shared<char>();
};
