// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/DeviceMessage.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "cli/Printable.h"
#include "midi/DeviceText.h"
#include "midi/SDCardReport.h"
#include "midi/simulator/RecorderRequest.h"

namespace {

using Json = nlohmann::ordered_json;
using View = std::span<const std::uint8_t>;

constexpr const char* kBattery = "battery_type";
constexpr const char* kAutoPowerOff = "auto_power_off";

std::string characters(View bytes) {
  return {bytes.begin(), bytes.end()};
}

std::string date(View bytes) {
  return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", 100 * bytes[6] + bytes[7], bytes[8],
                     bytes[9], bytes[10], bytes[11], bytes[12]);
}

/// Replies are known by their length, without F7, and by the bytes 4 and 5.
bool isReply(View bytes, std::size_t length, std::uint8_t code, std::uint8_t sub) {
  return bytes.size() == length + 1 && bytes[0] == 0xF0 && bytes.back() == 0xF7 &&
         bytes[4] == code && bytes[5] == sub;
}

bool isAcknowledgement(View bytes) {
  return bytes.size() == 7 && bytes[0] == 0xF0 && bytes[4] == 0x00 && bytes.back() == 0xF7;
}

bool isIdentity(View bytes) {
  return bytes.size() == 15 && bytes[0] == 0xF0 && bytes[4] == 0x02 && bytes.back() == 0xF7;
}

}  // namespace

DeviceMessage DeviceMessage::sent(View bytes) {
  const auto request = recorderRequest(bytes);
  if (!request) return unknown(bytes);
  switch (*request) {
    case RecorderRequest::Identity:
      return DeviceMessage("identity request");
    case RecorderRequest::Start:
      return DeviceMessage("application start");
    case RecorderRequest::Version:
      return DeviceMessage("version request");
    case RecorderRequest::Card:
      return DeviceMessage("SD card request");
    case RecorderRequest::Battery:
      return DeviceMessage("battery type request");
    case RecorderRequest::AutoPowerOff:
      return DeviceMessage("auto power-off request");
    case RecorderRequest::DateTime:
      return DeviceMessage("set date and time", {{"date_time", date(bytes)}});
    case RecorderRequest::SetBattery:
      return DeviceMessage("set battery type", {{kBattery, bytes[6]}});
    case RecorderRequest::SetAutoPowerOff:
      return DeviceMessage("set auto power-off", {{kAutoPowerOff, bytes[6]}});
  }
  return unknown(bytes);
}

DeviceMessage DeviceMessage::received(View bytes) {
  if (isIdentity(bytes)) return identity(bytes);
  if (isAcknowledgement(bytes)) return acknowledgement(bytes[5]);
  if (isReply(bytes, 30, 0x67, 0x00)) return card(bytes);
  if (isReply(bytes, 10, 0x11, 0x01)) {
    return DeviceMessage("version", {{"version", characters(bytes.subspan(6, 4))}});
  }
  if (isReply(bytes, 7, 0x45, 0x01)) return DeviceMessage("battery type", {{kBattery, bytes[6]}});
  if (isReply(bytes, 7, 0x45, 0x02)) {
    return DeviceMessage("auto power-off", {{kAutoPowerOff, bytes[6]}});
  }
  return unknown(bytes);
}

DeviceMessage DeviceMessage::identity(View bytes) {
  TARNDeviceInfo info;
  std::ranges::copy(bytes.subspan(5, 4), info._device_id.begin());
  return DeviceMessage("identity", {{"device_id", DeviceText::deviceId(info)},
                                    {"version", characters(bytes.subspan(9, 4))}});
}

DeviceMessage DeviceMessage::card(View bytes) {
  TARNDeviceInfo info;
  SDCardReport::read(bytes.data(), info);
  if (!DeviceText::hasCard(info)) return DeviceMessage("SD card", {{"sd_present", false}});
  return DeviceMessage("SD card", {{"sd_present", true},
                                   {"sd_used", info._sdUsedSize},
                                   {"sd_capacity", info._sdMaxSize},
                                   {"remaining", DeviceText::remaining(info)}});
}

DeviceMessage DeviceMessage::acknowledgement(std::uint8_t code) {
  static constexpr std::array<std::pair<std::uint8_t, const char*>, 4> kWhat = {
      {{0x0F, "date and time"},
       {0x10, "battery type"},
       {0x11, "auto power-off"},
       {0x15, "application start"}}};
  const auto* const what = std::ranges::find(kWhat, code, &decltype(kWhat)::value_type::first);
  if (what != kWhat.end()) return DeviceMessage("acknowledgement", {{"of", what->second}});
  return DeviceMessage("acknowledgement", {{"of", fmt::format("{:02X}", code)}});
}

DeviceMessage DeviceMessage::unknown(View bytes) {
  const bool isSysEx = !bytes.empty() && (bytes.front() == 0xF0 || bytes.back() == 0xF7);
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
