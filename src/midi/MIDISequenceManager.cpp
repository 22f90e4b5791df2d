// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDISequenceManager.h"

#include <utility>

#include "midi/MIDIConnectSequence.h"
#include "midi/MIDIManager.h"
#include "midi/MIDINOPSequence.h"
#include "midi/MIDIRecvSDCardRemain.h"
#include "midi/MIDISettingSequence.h"

namespace {

MIDISequenceManager* instance = nullptr;

template <class Setting>
std::shared_ptr<Setting> settingSequence(std::int32_t code,
                                         const MIDISequenceManager::Completion& onComplete) {
  auto sequence = std::make_shared<Setting>();
  sequence->setParam(code);
  sequence->setOnCompleted(onComplete);
  return sequence;
}

template <class Reading>
std::shared_ptr<Reading> readingSequence(const std::shared_ptr<TARNDeviceInfo>& info,
                                         const MIDISequenceManager::Completion& onComplete) {
  auto sequence = std::make_shared<Reading>();
  sequence->setDeviceInfo(info);
  sequence->setOnCompleted(onComplete);
  return sequence;
}

}  // namespace

MIDISequenceManager& MIDISequenceManager::get() {
  static std::unique_ptr<MIDISequenceManager> made;
  if (instance == nullptr) made = std::make_unique<MIDISequenceManager>();
  return *instance;
}

std::shared_ptr<TARNDeviceInfo> MIDISequenceManager::getDeviceInfo() {
  return instance == nullptr ? nullptr : instance->_deviceInfo;
}

MIDISequenceManager::MIDISequenceManager()
    : _idleSeq(std::make_shared<MIDINOPSequence>()), _current_seq(_idleSeq) {
  instance = this;
}

MIDISequenceManager::~MIDISequenceManager() {
  if (instance == this) instance = nullptr;
}

void MIDISequenceManager::startConnectSeq(const Completion& onComplete) {
  const auto handshake = readingSequence<MIDIConnectSequence>(_deviceInfo, onComplete);
  _idleSeq = readingSequence<MIDIRecvSDCardRemain>(_deviceInfo, onComplete);
  enqueue(handshake);
}

void MIDISequenceManager::startChangeBatteryTypeSeq(std::int32_t code,
                                                    const Completion& onComplete) {
  enqueue(settingSequence<MIDIBatteryTypeSequence>(code, onComplete));
}

void MIDISequenceManager::startChangeAutoPowOffSeq(std::int32_t code,
                                                   const Completion& onComplete) {
  enqueue(settingSequence<MIDIAutoPowOffSequence>(code, onComplete));
}

void MIDISequenceManager::enqueue(const Sequence& sequence) {
  _queue.push_back(sequence);
  checkAndRunQueue();
}

void MIDISequenceManager::checkAndRunQueue() {
  if (!_current_seq->didCompleted()) return;
  if (_queue.empty()) {
    forceStopSeq();
    return;
  }
  _current_seq = std::move(_queue.front());
  _queue.pop_front();
  _current_seq->startSequence();
}

bool MIDISequenceManager::isSeqRunning() const {
  return _current_seq != nullptr && !_current_seq->didCompleted();
}

std::int64_t MIDISequenceManager::connectStep() const {
  const auto* handshake = dynamic_cast<const MIDIConnectSequence*>(_current_seq.get());
  return handshake == nullptr ? 0 : handshake->step();
}

void MIDISequenceManager::switchToNewSeq(const Sequence& sequence) {
  if (!_current_seq->didCompleted()) _queue.push_front(_current_seq);
  _queue.push_front(sequence);
  _current_seq = _idleSeq;
}

void MIDISequenceManager::forceStopSeq() {
  if (_current_seq == _idleSeq) return;
  _current_seq->dispose();
  _current_seq = _idleSeq;
  _current_seq->startSequence();
  for (const Sequence& waiting : _queue) {
    if (!waiting->didCompleted()) waiting->dispose();
  }
  _queue.clear();
}

void MIDISequenceManager::send(const std::uint8_t* /*bytes*/, std::int32_t /*size*/,
                               const Response& response) {
  _response = response;
}

void MIDISequenceManager::exeCommand(const std::uint8_t* bytes, std::int32_t length,
                                     const Response& callback) {
  _exeBlock = callback;
  MIDIManager::get().send(bytes, length);
}

void MIDISequenceManager::receivedMidi(const MIDIEventPacket& packet) {
  notifyNewData(MIDIEventAssembler::convertMidiPacket2ByteArr(_buffer, packet));
}

void MIDISequenceManager::receivedMidi_iOS13(const MIDIPacket& packet, bool /*isLast*/) {
  notifyNewData(_packets.storeToBuffer(_buffer, packet));
}

void MIDISequenceManager::notifyNewData(bool isComplete) {
  if (isComplete) handOver();
  checkAndRunQueue();
}

// The sequence is held: a completion may start another one in its place.
void MIDISequenceManager::handOver() {
  notifyUI_IFNeeded();
  const Sequence current = _current_seq;
  current->receivedMidi(_buffer.bytes(), static_cast<std::int32_t>(_buffer.count()));
  const Completion& onCompleted = current->onCompleted();
  if (current->didCompleted() && onCompleted) onCompleted();
}

void MIDISequenceManager::notifyUI_IFNeeded() {
  if (!_exeBlock) return;
  const Response block = std::exchange(_exeBlock, nullptr);
  const bool isConsumed = block(_buffer.bytes(), static_cast<std::int32_t>(_buffer.count()));
  if (!isConsumed) _exeBlock = block;
}
