// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/MIDIConnectSequence.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "midi/MIDIPlatform.h"
#include "midi/SDCardReport.h"

/// What is waited for in a step, and what it leads to. A `sub` below zero is not looked at.
struct MIDIConnectSequence::Reply {
  std::int64_t step;
  std::int32_t length;
  int code;
  int sub;
  void (MIDIConnectSequence::*then)(const std::uint8_t* bytes);
};

const std::array<MIDIConnectSequence::Reply, 7>& MIDIConnectSequence::replies() {
  static constexpr int kAny = -1;
  static constexpr std::array<Reply, 7> kReplies = {{
      {2, 14, 0x02, kAny, &MIDIConnectSequence::identified},
      {4, 6, 0x00, 0x15, &MIDIConnectSequence::started},
      {6, 10, 0x11, 0x01, &MIDIConnectSequence::versionTold},
      {8, 30, 0x67, 0x00, &MIDIConnectSequence::cardTold},
      {10, 7, 0x45, 0x01, &MIDIConnectSequence::batteryTold},
      {12, 7, 0x45, 0x02, &MIDIConnectSequence::autoPowOffTold},
      {14, 6, 0x00, 0x0F, &MIDIConnectSequence::dateTimeSet},
  }};
  return kReplies;
}

void MIDIConnectSequence::startSequence() {
  markTimeOutWithDescription("CONNECT_SEQUENCE_DEVICE_ID_REQ");
  send({0xF0, 0x7E, 0x00, 0x06, 0x01, 0xF7});
  setSeq(2);
}

void MIDIConnectSequence::receivedMidi(const std::uint8_t* bytes, std::int32_t length) {
  if (didCompleted()) return;
  const auto isAccepted = [&](const Reply& reply) {
    return reply.step == seq() && reply.length == length && bytes[4] == reply.code &&
           (reply.sub < 0 || bytes[5] == reply.sub);
  };
  const auto* reply = std::ranges::find_if(replies(), isAccepted);
  if (reply != replies().end()) (this->*reply->then)(bytes);
}

void MIDIConnectSequence::identified(const std::uint8_t* bytes) {
  std::copy_n(bytes + 5, 4, _deviceInfo->_device_id.begin());
  std::copy_n(bytes + 9, 4, _deviceInfo->_version.begin());
  markTimeOutWithDescription("CONNECT_SEQUENCE_PC_APP_START_REQ");
  send({0xF0, 0x52, 0x00, 0x00, 0x52, 0xF7});
  setSeq(4);
}

void MIDIConnectSequence::started(const std::uint8_t* /*bytes*/) {
  cleanTimeOutTimer();
  send({0xF0, 0x52, 0x00, 0x00, 0x10, 0x01, 0xF7});
  setSeq(6);
}

void MIDIConnectSequence::versionTold(const std::uint8_t* bytes) {
  std::copy_n(bytes + 6, 4, _deviceInfo->_version.begin());
  cleanTimeOutTimer();
  send({0xF0, 0x52, 0x00, 0x00, 0x67, 0x01, 0xF7});
  setSeq(8);
}

void MIDIConnectSequence::cardTold(const std::uint8_t* bytes) {
  SDCardReport::read(bytes, *_deviceInfo);
  cleanTimeOutTimer();
  send({0xF0, 0x52, 0x00, 0x00, 0x46, 0x01, 0xF7});
  setSeq(10);
}

void MIDIConnectSequence::batteryTold(const std::uint8_t* bytes) {
  _deviceInfo->_batteryType = bytes[6];
  cleanTimeOutTimer();
  send({0xF0, 0x52, 0x00, 0x00, 0x46, 0x02, 0xF7});
  setSeq(12);
}

void MIDIConnectSequence::autoPowOffTold(const std::uint8_t* bytes) {
  _deviceInfo->_autoPowOffType = bytes[6];
  cleanTimeOutTimer();
  sendDateTime();
  setSeq(14);
}

void MIDIConnectSequence::dateTimeSet(const std::uint8_t* /*bytes*/) {
  cleanTimeOutTimer();
  setSeq(0);
  dispose();
}

void MIDIConnectSequence::sendDateTime() {
  const MIDICalendarTime now = MIDIPlatform::clock().localTime();
  const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
  send({0xF0, 0x52, 0x00, 0x00, 0x31, 0x00, byte(now.year / 100), byte(now.year % 100),
        byte(now.month), byte(now.day), byte(now.hour), byte(now.minute), byte(now.second), 0xF7});
}

std::string MIDIConnectSequence::buildSizeString(float size) {
  constexpr float kGigabyte = 0x1p30F;
  const bool isSmall = size < kGigabyte;
  const float value = size * (isSmall ? 0x1p-20F : 0x1p-30F);
  const char* unit = isSmall ? "MB" : "GB";
  const auto exact = static_cast<double>(value);
  if (value < 10.0F) return fmt::format("{:.2f} {}", exact, unit);
  if (value < 100.0F) return fmt::format("{:.1f} {}", exact, unit);
  return fmt::format("{:3d} {}", static_cast<std::int64_t>(value), unit);
}
