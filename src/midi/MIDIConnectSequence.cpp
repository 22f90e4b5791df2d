// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIConnectSequence.h"

#include <algorithm>

#include "midi/MIDIPlatform.h"
#include "midi/SDCardReport.h"
#include "midi/SizeText.h"

using Request = RecorderProtocol::Request;

/// What is waited for in a step, and what it leads to.
struct MIDIConnectSequence::Awaited {
  std::int64_t step;
  Request request;
  void (MIDIConnectSequence::*then)(View reply);
};

const std::array<MIDIConnectSequence::Awaited, 7>& MIDIConnectSequence::steps() {
  static constexpr std::array<Awaited, 7> kSteps = {{
      {2, Request::Identity, &MIDIConnectSequence::identified},
      {4, Request::Start, &MIDIConnectSequence::started},
      {6, Request::Version, &MIDIConnectSequence::versionTold},
      {8, Request::Card, &MIDIConnectSequence::cardTold},
      {10, Request::BatteryType, &MIDIConnectSequence::batteryTold},
      {12, Request::AutoPowerOff, &MIDIConnectSequence::autoPowOffTold},
      {14, Request::SetDateTime, &MIDIConnectSequence::dateTimeSet},
  }};
  return kSteps;
}

void MIDIConnectSequence::startSequence() {
  markTimeOutWithDescription("CONNECT_SEQUENCE_DEVICE_ID_REQ");
  send(RecorderProtocol::request(Request::Identity));
  setSeq(2);
}

void MIDIConnectSequence::receivedMidi(const std::uint8_t* bytes, std::int32_t length) {
  if (didCompleted()) return;
  const auto* const awaited = std::ranges::find(steps(), seq(), &Awaited::step);
  if (awaited == steps().end()) return;
  const View message(bytes, static_cast<std::size_t>(length));
  const auto reply = RecorderProtocol::replyTo(awaited->request);
  if (RecorderProtocol::isReply(reply, message)) (this->*awaited->then)(message);
}

// From the version on nothing times out.
void MIDIConnectSequence::ask(Request request, std::int64_t step) {
  cleanTimeOutTimer();
  send(RecorderProtocol::request(request));
  setSeq(step);
}

void MIDIConnectSequence::identified(View reply) {
  const auto identity = RecorderProtocol::identityOf(reply);
  _deviceInfo->_device_id = identity.deviceId;
  _deviceInfo->_version = identity.version;
  markTimeOutWithDescription("CONNECT_SEQUENCE_PC_APP_START_REQ");
  send(RecorderProtocol::request(Request::Start));
  setSeq(4);
}

void MIDIConnectSequence::started(View /*reply*/) {
  ask(Request::Version, 6);
}

void MIDIConnectSequence::versionTold(View reply) {
  _deviceInfo->_version = RecorderProtocol::versionOf(reply);
  ask(Request::Card, 8);
}

void MIDIConnectSequence::cardTold(View reply) {
  SDCardReport::read(reply.data(), *_deviceInfo);
  ask(Request::BatteryType, 10);
}

void MIDIConnectSequence::batteryTold(View reply) {
  _deviceInfo->_batteryType = RecorderProtocol::valueOf(reply);
  ask(Request::AutoPowerOff, 12);
}

void MIDIConnectSequence::autoPowOffTold(View reply) {
  _deviceInfo->_autoPowOffType = RecorderProtocol::valueOf(reply);
  cleanTimeOutTimer();
  send(RecorderProtocol::setDateTime(MIDIPlatform::clock().localTime()));
  setSeq(14);
}

void MIDIConnectSequence::dateTimeSet(View /*reply*/) {
  cleanTimeOutTimer();
  setSeq(0);
  dispose();
}

std::string MIDIConnectSequence::buildSizeString(float size) {
  return SizeText::of(size);
}
