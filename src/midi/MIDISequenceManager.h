// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>

#include "midi/MIDIEventAssembler.h"
#include "midi/MIDIPacketAssembler.h"
#include "midi/MIDIPackets.h"
#include "midi/MIDIReceiveBuffer.h"
#include "midi/MIDISequenceBase.h"
#include "midi/TARNDeviceInfo.h"

/// Runs the exchanges with the recorder, one at a time, and puts what is received together into
/// the messages that they see. Interface thread only.
///
/// A sequence's `onCompleted` is called after every complete message that finds it completed. A
/// sequence that timed out is not called by that, and the one queued behind it starts with the
/// next message or request. Both are kept on purpose.
class MIDISequenceManager {
 public:
  using Completion = MIDISequenceBase::Completion;
  using Sequence = std::shared_ptr<MIDISequenceBase>;
  /// Sees a message from F0 to the byte before F7; true when it was the one waited for.
  using Response = std::function<bool(const std::uint8_t* bytes, std::int32_t length)>;

  /// The one of the process, made on first use.
  static MIDISequenceManager& get();
  /// The record of the one of the process; none before the first `get`.
  static std::shared_ptr<TARNDeviceInfo> getDeviceInfo();

  /// Idle, with an empty record; becomes the one of the process.
  MIDISequenceManager();
  MIDISequenceManager(const MIDISequenceManager&) = delete;
  MIDISequenceManager& operator=(const MIDISequenceManager&) = delete;
  ~MIDISequenceManager();

  /// Queues the handshake; from now on the recorder's card reports are listened for when nothing
  /// else runs. `onComplete` follows the handshake, and each message while idle.
  void startConnectSeq(const Completion& onComplete);
  /// Queue the change of a setting to `code`.
  void startChangeBatteryTypeSeq(std::int32_t code, const Completion& onComplete);
  void startChangeAutoPowOffSeq(std::int32_t code, const Completion& onComplete);

  /// Starts what is next, unless the current sequence is still waiting.
  void checkAndRunQueue();
  [[nodiscard]] bool isSeqRunning() const;
  /// The step in which a handshake waits; 0 when none is under way.
  [[nodiscard]] std::int64_t connectStep() const;
  /// Gives up whatever runs or waits, and listens. Also for when the recorder has gone.
  void forceStopSeq();

  void receivedMidi(const MIDIEventPacket& packet);
  void receivedMidi_iOS13(const MIDIPacket& packet, bool isLast);
  /// Something arrived; `isComplete` when the buffer holds a message.
  void notifyNewData(bool isComplete);
  void notifyUI_IFNeeded();

  // No program calls these; their names are the system's interfaces'.

  /// Puts a sequence first, before the current one if that is still waiting; starts neither.
  void switchToNewSeq(const Sequence& sequence);
  /// Only keeps the callable.
  void send(const std::uint8_t* bytes, std::int32_t size, const Response& response);
  /// Sends the bytes as they are. `callback` sees each complete message, before the sequences do,
  /// until it returns true.
  void exeCommand(const std::uint8_t* bytes, std::int32_t length, const Response& callback);

 private:
  void enqueue(const Sequence& sequence);
  void handOver();

  Sequence _idleSeq;
  Sequence _current_seq;
  std::deque<Sequence> _queue;
  Response _response;
  Response _exeBlock;
  std::shared_ptr<TARNDeviceInfo> _deviceInfo = std::make_shared<TARNDeviceInfo>();
  MIDIReceiveBuffer _buffer;
  MIDIPacketAssembler _packets;
};
