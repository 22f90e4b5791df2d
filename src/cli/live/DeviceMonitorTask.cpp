// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/DeviceMonitorTask.h"

#include <fmt/format.h>

#include <cmath>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "cli/live/DeviceMessage.h"
#include "midi/MIDIPlatform.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr std::size_t kMostShown = 64;

// Text shows the beginning of a long message.
std::string shown(const DeviceTap::Bytes& bytes) {
  if (bytes.size() <= kMostShown) return DeviceMessage::hexadecimal(bytes);
  const auto beginning = std::span(bytes).first(kMostShown);
  return fmt::format("{} ... ({} bytes)", DeviceMessage::hexadecimal(beginning), bytes.size());
}

std::string line(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

DeviceMonitorTask::DeviceMonitorTask(Setup setup, DeviceTap& tap)
    : DeviceTask(std::move(setup)), _start(MIDIPlatform::clock().hostTime()) {
  tap.setShow([this](DeviceTap::Way way, const DeviceTap::Bytes& bytes) { message(way, bytes); });
}

void DeviceMonitorTask::event(const std::string& what) {
  say(asJson() ? line({{"time", seconds()}, {"event", what}})
               : fmt::format("{:9.3f}   {}\n", seconds(), what));
}

void DeviceMonitorTask::message(DeviceTap::Way way, const DeviceTap::Bytes& bytes) {
  const bool isSent = way == DeviceTap::Way::Sent;
  const auto meaning = isSent ? DeviceMessage::sent(bytes) : DeviceMessage::received(bytes);
  if (!asJson()) {
    say(fmt::format("{:9.3f} {} {}\n{:11} {}\n", seconds(), isSent ? '>' : '<', meaning.text(), "",
                    shown(bytes)));
    return;
  }
  const Json values = meaning.values().is_null() ? Json::object() : meaning.values();
  say(line({{"time", seconds()},
            {"direction", isSent ? "out" : "in"},
            {"bytes", DeviceMessage::hexadecimal(bytes)},
            {"meaning", meaning.name()},
            {"values", values}}));
}

double DeviceMonitorTask::seconds() const {
  constexpr double kNanoseconds = 1e9;
  constexpr double kSteps = 1000.0;
  const auto passed = static_cast<double>(MIDIPlatform::clock().hostTime() - _start);
  return std::round(passed / kNanoseconds * kSteps) / kSteps;
}
