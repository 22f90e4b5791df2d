// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/DeviceSettingTask.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>
#include <utility>

#include "cli/Command.h"
#include "cli/live/DeviceReport.h"

DeviceSettingTask::DeviceSettingTask(Setup setup, Setting setting, std::uint8_t value)
    : DeviceTask(std::move(setup)), _setting(setting), _value(value) {}

// The record comes again with every message while nothing else runs.
void DeviceSettingTask::onRecord() {
  if (std::exchange(_isSent, true)) return;
  const auto done = [this] { isAnswered() ? acknowledged() : refuse(); };
  _setting == Setting::BatteryType ? sequences().startChangeBatteryTypeSeq(_value, done)
                                   : sequences().startChangeAutoPowOffSeq(_value, done);
}

void DeviceSettingTask::onStopped(std::int64_t step) {
  showJson(false, false);
  fail(noAnswer(step));
}

// The time-out of a setting is silent.
void DeviceSettingTask::onTick() {
  if (_isSent && !sequences().isSeqRunning()) refuse();
}

void DeviceSettingTask::acknowledged() {
  showJson(true, true);
  if (!asJson()) say(name() + "\n");
  end(Command::kDone);
}

void DeviceSettingTask::refuse() {
  showJson(true, false);
  fail(fmt::format("The recorder does not acknowledge the setting. {}. Plug it in again.", name()));
}

void DeviceSettingTask::showJson(bool isConnected, bool isAcknowledged) {
  if (!asJson()) return;
  nlohmann::ordered_json json;
  json["connected"] = isConnected;
  json[_setting == Setting::BatteryType ? "battery_type" : "auto_power_off"] = _value;
  json["acknowledged"] = isAcknowledged;
  say(json.dump() + "\n");
}

std::string DeviceSettingTask::name() const {
  return _setting == Setting::BatteryType ? "Battery type: " + DeviceReport::battery(_value)
                                          : "Auto power-off: " + DeviceReport::autoPowerOff(_value);
}
