// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/simulator/SimulatedRecorder.h"

#include <algorithm>
#include <utility>

namespace {

using Bytes = SimulatedRecorder::Bytes;

constexpr double kAnswerSeconds = 0.001;
constexpr double kSlowSeconds = 3.0;

Bytes withOneMore(Bytes message) {
  message.insert(message.end() - 1, 0x00);
  return message;
}

std::vector<Bytes> everyByte(const Bytes& message) {
  std::vector<Bytes> pieces;
  for (const std::uint8_t byte : message) pieces.push_back({byte});
  return pieces;
}

Bytes joined(Bytes first, const Bytes& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

/// Two notes with one status, then the message with a clock byte after each of its bytes.
Bytes interleaved(const Bytes& message) {
  Bytes bytes = {0x90, 0x3C, 0x40, 0x3C, 0x00};
  for (const std::uint8_t byte : message) bytes.insert(bytes.end(), {byte, 0xF8});
  return bytes;
}

}  // namespace

SimulatedRecorder::SimulatedRecorder(MIDIClock& clock, RecorderState state)
    : _clock(clock), _state(state) {}

void SimulatedRecorder::plugIn(Cable cable) {
  _cable = std::move(cable);
  _incoming.clear();
}

void SimulatedRecorder::pullOut() {
  _cable = {};
  _timers.clear();
}

void SimulatedRecorder::receive(std::span<const std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) {
    if (byte == 0xF0) _incoming.clear();
    _incoming.push_back(byte);
    if (byte == 0xF7) take(std::exchange(_incoming, {}));
  }
}

void SimulatedRecorder::take(const Bytes& message) {
  _received.push_back(message);
  const auto request = recorderRequest(message);
  if (!request) return;
  const auto found = _faults.find(*request);
  const RecorderFault fault = found == _faults.end() ? RecorderFault::None : found->second;
  if (fault == RecorderFault::Disappear) {
    // The cable goes while it is pulled out.
    later(kAnswerSeconds, [pullOut = _cable.pullOut] { pullOut(); });
    return;
  }
  carryOut(*request, message);
  const double delay = fault == RecorderFault::Slow ? kSlowSeconds : kAnswerSeconds;
  transmitLater(delay, spoilt(fault, *request));
}

void SimulatedRecorder::carryOut(RecorderRequest request, const Bytes& message) {
  if (request == RecorderRequest::SetBattery) _state.batteryType = message[6];
  if (request == RecorderRequest::SetAutoPowerOff) _state.autoPowerOff = message[6];
  if (request != RecorderRequest::DateTime) return;
  std::copy_n(message.begin() + 6, _state.dateTime.size(), _state.dateTime.begin());
}

Bytes SimulatedRecorder::answerTo(RecorderRequest request) const {
  switch (request) {
    case RecorderRequest::Identity:
      return RecorderMessages::identity(_state);
    case RecorderRequest::Start:
      return RecorderMessages::acknowledgement(0x15);
    case RecorderRequest::Version:
      return RecorderMessages::version(_state);
    case RecorderRequest::Card:
      return RecorderMessages::card(_state);
    case RecorderRequest::Battery:
      return RecorderMessages::setting(1, _state.batteryType);
    case RecorderRequest::AutoPowerOff:
      return RecorderMessages::setting(2, _state.autoPowerOff);
    case RecorderRequest::DateTime:
      return RecorderMessages::acknowledgement(0x0F);
    case RecorderRequest::SetBattery:
      return RecorderMessages::acknowledgement(0x10);
    case RecorderRequest::SetAutoPowerOff:
      return RecorderMessages::acknowledgement(0x11);
  }
  return {};
}

std::vector<Bytes> SimulatedRecorder::spoilt(RecorderFault fault, RecorderRequest request) const {
  const Bytes answer = answerTo(request);
  switch (fault) {
    case RecorderFault::Silent:
      return {};
    case RecorderFault::WrongLength:
      return {withOneMore(answer)};
    case RecorderFault::LongIdentity:
      return {request == RecorderRequest::Identity ? withOneMore(answer) : answer};
    case RecorderFault::Garbage:
      return {{0xF0, 0x13, 0x7F, 0x2A, 0x55, 0x61, 0x08, 0xF7}};
    case RecorderFault::SplitAtEveryByte:
      return everyByte(answer);
    case RecorderFault::Merged:
      return {joined(answer, RecorderMessages::card(_state))};
    case RecorderFault::Interleaved:
      return {interleaved(answer)};
    default:
      return {answer};
  }
}

void SimulatedRecorder::reportCard() {
  transmitLater(kAnswerSeconds, {RecorderMessages::card(_state)});
}

void SimulatedRecorder::transmitLater(double seconds, std::vector<Bytes> pieces) {
  later(seconds, [this, pieces = std::move(pieces)] {
    for (const Bytes& piece : pieces) {
      // The program may close the cable at any piece.
      const auto transmit = _cable.transmit;
      if (transmit) transmit(piece);
    }
  });
}

void SimulatedRecorder::later(double seconds, std::function<void()> work) {
  if (!_cable.transmit) return;
  const std::uint64_t number = ++_lastTimer;
  _timers[number] = _clock.after(seconds, [this, number, work = std::move(work)] {
    const auto timer = std::move(_timers[number]);
    _timers.erase(number);
    work();
  });
}
