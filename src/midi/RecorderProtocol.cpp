// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "midi/RecorderProtocol.h"

#include <algorithm>

#include "midi/MIDIReceiveBuffer.h"

namespace {

using View = RecorderProtocol::View;
using Request = RecorderProtocol::Request;
using Reply = RecorderProtocol::Reply;

constexpr std::uint8_t kStart = MIDIReceiveBuffer::kSysExStart;
constexpr std::uint8_t kEnd = MIDIReceiveBuffer::kSysExEnd;
constexpr std::size_t kAcknowledgement = 6;  // bytes

/// A request between F0 and its values, and how many values follow.
struct RequestRow {
  std::array<std::uint8_t, 5> head;
  std::size_t headSize;
  std::size_t values;

  [[nodiscard]] View beginning() const { return View(head).first(headSize); }
  [[nodiscard]] std::size_t length() const { return 1 + headSize + values + 1; }
};

constexpr std::array<RequestRow, 9> kRequests = {{
    {{0x7E, 0x00, 0x06, 0x01}, 4, 0},        // Identity: the universal identity request
    {{0x52, 0x00, 0x00, 0x52}, 4, 0},        // Start
    {{0x52, 0x00, 0x00, 0x10, 0x01}, 5, 0},  // Version
    {{0x52, 0x00, 0x00, 0x67, 0x01}, 5, 0},  // Card
    {{0x52, 0x00, 0x00, 0x46, 0x01}, 5, 0},  // BatteryType
    {{0x52, 0x00, 0x00, 0x46, 0x02}, 5, 0},  // AutoPowerOff
    {{0x52, 0x00, 0x00, 0x31, 0x00}, 5, 7},  // SetDateTime
    {{0x52, 0x00, 0x00, 0x31, 0x01}, 5, 1},  // SetBatteryType
    {{0x52, 0x00, 0x00, 0x31, 0x02}, 5, 1},  // SetAutoPowerOff
}};

constexpr int kAny = -1;

/// A reply without its F7: length, byte 4, byte 5.
struct ReplyRow {
  std::size_t length;
  std::uint8_t code;
  int sub;
};

constexpr std::array<ReplyRow, 9> kReplies = {{
    {14, 0x02, kAny},                // Identity
    {kAcknowledgement, 0x00, 0x15},  // Started
    {10, 0x11, 0x01},                // Version
    {30, 0x67, 0x00},                // Card
    {7, 0x45, 0x01},                 // BatteryType
    {7, 0x45, 0x02},                 // AutoPowerOff
    {kAcknowledgement, 0x00, 0x0F},  // DateTimeSet
    {kAcknowledgement, 0x00, 0x10},  // BatteryTypeSet
    {kAcknowledgement, 0x00, 0x11},  // AutoPowerOffSet
}};

bool is(const RequestRow& row, View message) {
  return message.size() == row.length() && message.front() == kStart && message.back() == kEnd &&
         std::ranges::equal(message.subspan(1, row.headSize), row.beginning());
}

bool is(const ReplyRow& row, View message) {
  return message.size() == row.length && message[4] == row.code &&
         (row.sub == kAny || message[5] == row.sub);
}

template <std::size_t Size>
std::array<std::uint8_t, Size> taken(View message, std::size_t from) {
  std::array<std::uint8_t, Size> values{};
  std::ranges::copy(message.subspan(from, Size), values.begin());
  return values;
}

template <class Kind, class Row, std::size_t Size>
std::optional<Kind> kindOf(const std::array<Row, Size>& rows, View message) {
  const auto* const row =
      std::ranges::find_if(rows, [message](const Row& each) { return is(each, message); });
  if (row == rows.end()) return std::nullopt;
  return static_cast<Kind>(row - rows.begin());
}

}  // namespace

RecorderProtocol::Bytes RecorderProtocol::request(Request what, View values) {
  const View head = kRequests[static_cast<std::size_t>(what)].beginning();
  Bytes message = {kStart};
  message.insert(message.end(), head.begin(), head.end());
  message.insert(message.end(), values.begin(), values.end());
  message.push_back(kEnd);
  return message;
}

RecorderProtocol::Bytes RecorderProtocol::setDateTime(const MIDICalendarTime& time) {
  const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
  const auto values = std::to_array<std::uint8_t>(
      {byte(time.year / 100), byte(time.year % 100), byte(time.month), byte(time.day),
       byte(time.hour), byte(time.minute), byte(time.second)});
  return request(Request::SetDateTime, values);
}

std::optional<Request> RecorderProtocol::requestOf(View message) {
  return kindOf<Request>(kRequests, message);
}

MIDICalendarTime RecorderProtocol::dateTimeOf(View request) {
  return {
      100 * request[6] + request[7], request[8], request[9], request[10], request[11], request[12]};
}

bool RecorderProtocol::isReply(Reply what, View message) {
  return is(kReplies[static_cast<std::size_t>(what)], message);
}

std::optional<Reply> RecorderProtocol::replyOf(View message) {
  return kindOf<Reply>(kReplies, message);
}

RecorderProtocol::Identity RecorderProtocol::identityOf(View reply) {
  return {taken<4>(reply, 5), taken<4>(reply, 9)};
}

RecorderProtocol::Text RecorderProtocol::versionOf(View reply) {
  return taken<4>(reply, 6);
}

RecorderProtocol::Card RecorderProtocol::cardOf(View reply) {
  return {reply[6], taken<3>(reply, 7), taken<10>(reply, 10), taken<10>(reply, 20)};
}

std::optional<std::uint8_t> RecorderProtocol::acknowledgedBy(View message) {
  if (message.size() != kAcknowledgement || message[4] != 0x00) return std::nullopt;
  return message[5];
}
