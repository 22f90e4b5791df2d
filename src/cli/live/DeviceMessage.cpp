// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/DeviceMessage.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "cli/Printable.h"
#include "midi/DeviceText.h"
#include "midi/MIDIReceiveBuffer.h"
#include "midi/SDCardReport.h"

namespace {

using Json = nlohmann::ordered_json;
using View = RecorderProtocol::View;
using Request = RecorderProtocol::Request;
using Reply = RecorderProtocol::Reply;

constexpr std::uint8_t kSysExStart = MIDIReceiveBuffer::kSysExStart;
constexpr std::uint8_t kSysExEnd = MIDIReceiveBuffer::kSysExEnd;
constexpr const char* kBattery = "battery_type";
constexpr const char* kAutoPowerOff = "auto_power_off";

std::string characters(const RecorderProtocol::Text& text) {
  return {text.begin(), text.end()};
}

std::string date(const MIDICalendarTime& time) {
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", time.year, time.month, time.day,
                     time.hour, time.minute, time.second);
}

/// A whole SysEx message without its F7, as replies are known by; none of any other message.
std::optional<View> opened(View bytes) {
  if (bytes.size() < 2 || bytes.front() != kSysExStart || bytes.back() != kSysExEnd) return {};
  return bytes.first(bytes.size() - 1);
}

}  // namespace

DeviceMessage DeviceMessage::sent(View bytes) {
  const auto request = RecorderProtocol::requestOf(bytes);
  if (!request) return unknown(bytes);
  switch (*request) {
    case Request::Identity:
      return DeviceMessage("identity request");
    case Request::Start:
      return DeviceMessage("application start");
    case Request::Version:
      return DeviceMessage("version request");
    case Request::Card:
      return DeviceMessage("SD card request");
    case Request::BatteryType:
      return DeviceMessage("battery type request");
    case Request::AutoPowerOff:
      return DeviceMessage("auto power-off request");
    case Request::SetDateTime:
      return DeviceMessage("set date and time",
                           {{"date_time", date(RecorderProtocol::dateTimeOf(bytes))}});
    case Request::SetBatteryType:
      return DeviceMessage("set battery type", {{kBattery, RecorderProtocol::codeOf(bytes)}});
    case Request::SetAutoPowerOff:
      return DeviceMessage("set auto power-off",
                           {{kAutoPowerOff, RecorderProtocol::codeOf(bytes)}});
  }
  return unknown(bytes);
}

DeviceMessage DeviceMessage::received(View bytes) {
  const auto message = opened(bytes);
  if (!message) return unknown(bytes);
  if (const auto code = RecorderProtocol::acknowledgedBy(*message)) {
    return acknowledgement(*message, *code);
  }
  const auto reply = RecorderProtocol::replyOf(*message);
  return reply ? told(*reply, *message) : unknown(bytes);
}

DeviceMessage DeviceMessage::told(RecorderProtocol::Reply reply, View message) {
  switch (reply) {
    case Reply::Identity:
      return identity(message);
    case Reply::Version:
      return DeviceMessage("version",
                           {{"version", characters(RecorderProtocol::versionOf(message))}});
    case Reply::Card:
      return card(message);
    case Reply::BatteryType:
      return DeviceMessage("battery type", {{kBattery, RecorderProtocol::valueOf(message)}});
    case Reply::AutoPowerOff:
      return DeviceMessage("auto power-off", {{kAutoPowerOff, RecorderProtocol::valueOf(message)}});
    default:
      return unknown(message);
  }
}

DeviceMessage DeviceMessage::identity(View message) {
  const auto identity = RecorderProtocol::identityOf(message);
  TARNDeviceInfo info;
  info._device_id = identity.deviceId;
  return DeviceMessage("identity", {{"device_id", DeviceText::deviceId(info)},
                                    {"version", characters(identity.version)}});
}

DeviceMessage DeviceMessage::card(View message) {
  TARNDeviceInfo info;
  SDCardReport::read(message.data(), info);
  if (!DeviceText::hasCard(info)) return DeviceMessage("SD card", {{"sd_present", false}});
  return DeviceMessage("SD card", {{"sd_present", true},
                                   {"sd_used", info._sdUsedSize},
                                   {"sd_capacity", info._sdMaxSize},
                                   {"remaining", DeviceText::remaining(info)}});
}

DeviceMessage DeviceMessage::acknowledgement(View message, std::uint8_t code) {
  static constexpr std::array<std::pair<Reply, const char*>, 4> kWhat = {
      {{Reply::DateTimeSet, "date and time"},
       {Reply::BatteryTypeSet, "battery type"},
       {Reply::AutoPowerOffSet, "auto power-off"},
       {Reply::Started, "application start"}}};
  const auto reply = RecorderProtocol::replyOf(message);
  const auto* const what = std::ranges::find(kWhat, reply, &decltype(kWhat)::value_type::first);
  if (what != kWhat.end()) return DeviceMessage("acknowledgement", {{"of", what->second}});
  return DeviceMessage("acknowledgement", {{"of", fmt::format("{:02X}", code)}});
}

DeviceMessage DeviceMessage::unknown(View bytes) {
  const bool isSysEx =
      !bytes.empty() && (bytes.front() == kSysExStart || bytes.back() == kSysExEnd);
  return DeviceMessage(isSysEx ? "unknown message" : "other MIDI message");
}

std::string DeviceMessage::text() const {
  std::string text = _name;
  const char* separator = ": ";
  for (const auto& [key, value] : _values.items()) {
    text += separator + key + " " + (value.is_string() ? value.get<std::string>() : value.dump());
    separator = ", ";
  }
  return printable(text);
}

std::string DeviceMessage::hexadecimal(View bytes) {
  return fmt::format("{:02X}", fmt::join(bytes, " "));
}
