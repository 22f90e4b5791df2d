// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/DeviceReport.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "cli/Printable.h"
#include "midi/DeviceText.h"
#include "midi/RecorderSettings.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kColumn = 16;

std::string named(std::span<const RecorderChoice> choices, std::uint8_t value) {
  return fmt::format("{} ({})", value, RecorderSettings::titleOf(choices, value));
}

}  // namespace

DeviceReport::DeviceReport(std::int64_t step) : _lines({{"Recorder", "not connected"}}) {
  _json["connected"] = false;
  for (const char* const key : {"device_id", "firmware", "sd_present", "sd_used", "sd_capacity",
                                "remaining", "battery_type", "auto_power_off", "step"}) {
    _json[key] = nullptr;
  }
  if (step != 0) _json["step"] = step;
}

// A step waits for its answer, so what it asks for is known from the next one on. Connected is, as
// in the window, only a recorder that has answered everything.
DeviceReport::DeviceReport(const TARNDeviceInfo& info, std::int64_t step) : DeviceReport() {
  const auto isKnown = [step](std::int64_t after) { return step == 0 || step > after; };
  _lines.clear();
  const bool isWhole = step == 0;
  add("connected", isWhole, "Recorder", isWhole ? "connected" : "does not answer");
  if (isKnown(2)) {
    add("device_id", DeviceText::deviceId(info), "Identity", DeviceText::deviceId(info));
    const std::string version = DeviceText::firmware(info);
    add("firmware", version, "Firmware", printable(version));
  }
  if (isKnown(8)) addCard(info);
  const std::uint8_t type = info._batteryType;
  if (isKnown(10)) add("battery_type", type, "Battery type", battery(type));
  const std::uint8_t time = info._autoPowOffType;
  if (isKnown(12)) add("auto_power_off", time, "Auto power-off", autoPowerOff(time));
  if (step != 0) add("step", step, "Stopped at step", fmt::format("{} ({})", step, stepName(step)));
}

void DeviceReport::addCard(const TARNDeviceInfo& info) {
  const bool hasCard = DeviceText::hasCard(info);
  const auto told = [hasCard](const std::string& text) { return hasCard ? Json(text) : Json(); };
  add("sd_present", hasCard, "SD card", DeviceText::used(info));
  _json["sd_used"] = told(info._sdUsedSize);
  _json["sd_capacity"] = told(info._sdMaxSize);
  const std::string left = DeviceText::remaining(info);
  add("remaining", told(left), "Remaining", left);
}

void DeviceReport::add(const char* key, const Json& value, const char* name,
                       const std::string& text) {
  _json[key] = value;
  _lines.emplace_back(name, text);
}

std::string DeviceReport::text() const {
  DeviceReport nothing;
  nothing._lines.clear();
  return text(nothing);
}

std::string DeviceReport::text(const DeviceReport& shown) const {
  std::string text;
  for (const Line& line : _lines) {
    if (std::ranges::count(shown._lines, line) != 0) continue;
    text += fmt::format("{:<{}} {}\n", line.first + ":", kColumn, line.second);
  }
  return text;
}

// Bytes of a version that are no text are shown with replacement characters.
std::string DeviceReport::json() const {
  return _json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string_view DeviceReport::stepName(std::int64_t step) {
  static constexpr std::array<std::string_view, 7> kNames = {
      "identity",     "application start", "version",      "SD card",
      "battery type", "auto power-off",    "date and time"};
  const auto index = static_cast<std::uint64_t>(step / 2 - 1);
  return index < kNames.size() ? kNames[index] : "";
}

std::string DeviceReport::battery(std::uint8_t type) {
  return named(RecorderSettings::batteryTypes(), type);
}

std::string DeviceReport::autoPowerOff(std::uint8_t time) {
  return named(RecorderSettings::autoPowerOffTimes(), time);
}
