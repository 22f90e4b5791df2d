// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/RecorderLink.h"

#include "midi/MIDICommon.h"
#include "midi/MIDIManager.h"
#include "midi/MIDISequenceManager.h"

namespace {

void tell(const std::function<void()>& listener) {
  if (listener) listener();
}

}  // namespace

void RecorderLink::open() {
  MIDIManager& manager = MIDIManager::get();
  manager.setDelegate(this);
  manager.scanTarnDevice();
}

bool RecorderLink::isAsking() const {
  return _phase == Phase::Asking && MIDISequenceManager::get().connectStep() != 0;
}

std::shared_ptr<TARNDeviceInfo> RecorderLink::record() {
  const auto info = MIDISequenceManager::getDeviceInfo();
  return info ? info : std::make_shared<TARNDeviceInfo>();
}

void RecorderLink::MIDIManagerFound() {
  MIDIManager::get().connect();
}

void RecorderLink::MIDIManagerConnected() {
  _phase = Phase::Asking;
  tell(_listener.connected);
  if (_phase != Phase::Asking) return;
  MIDISequenceManager::get().startConnectSeq(completion());
  noteStep();
}

// The sequences keep it, and may outlive the link.
MIDISequenceBase::Completion RecorderLink::completion() {
  return [this, alive = life()] {
    MIDICommon::runOnUIThread([this, &alive] {
      if (!alive.expired()) completed();
    });
  };
}

void RecorderLink::completed() {
  if (_phase == Phase::Asking && isAnswered()) _phase = Phase::Ready;
  if (_phase == Phase::Ready) tell(_listener.recordChanged);
}

// From the third request on a handshake waits for ever; a recorder that comes back would wait
// behind it.
void RecorderLink::MIDIManagerDisconnected() {
  _phase = Phase::Absent;
  MIDISequenceManager::get().forceStopSeq();
  tell(_listener.lost);
}

void RecorderLink::MIDIManagerReceivedData(const MIDIEventPacket& packet) {
  noteRunning();
  MIDISequenceManager::get().receivedMidi(packet);
  noteStep();
}

void RecorderLink::MIDIManagerReceivedData_iOS13(const MIDIPacket& packet, bool isLast) {
  noteRunning();
  MIDISequenceManager::get().receivedMidi_iOS13(packet, isLast);
  noteStep();
}

void RecorderLink::noteRunning() {
  _wasRunning = MIDISequenceManager::get().isSeqRunning();
}

// After a time-out the sequences no longer know where it was.
void RecorderLink::noteStep() {
  const std::int64_t step = MIDISequenceManager::get().connectStep();
  if (step != 0) _step = step;
}
