// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/DeviceCommand.h"

#include <fmt/format.h>

#include <QCoreApplication>
#include <array>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/LiveCommand.h"
#include "cli/TimeText.h"
#include "cli/live/DeviceMonitorTask.h"
#include "cli/live/DeviceSettingTask.h"
#include "cli/live/DeviceStatusTask.h"
#include "midi/AbsentMIDISystem.h"
#include "midi/MIDILog.h"
#include "midi/MIDIPlatform.h"
#include "midi/QtMIDIClock.h"
#include "midi/RecorderSettings.h"
#include "midi/alsa/AlsaMIDISystem.h"
#include "midi/simulator/RecorderScript.h"

namespace {

constexpr const char* kWithoutWords = "true";

std::string_view wordsOf(const std::string& simulate) {
  return simulate == kWithoutWords ? std::string_view() : std::string_view(simulate);
}

std::string checkScript(const std::string& simulate) {
  std::string fault;
  RecorderScript::parse(wordsOf(simulate), fault);
  return fault.empty() ? "" : "The simulated recorder does not know: " + fault;
}

// "0 Alkaline, 1 Ni-MH"
std::string listed(std::span<const RecorderChoice> choices) {
  std::vector<std::string> words;
  for (const RecorderChoice& choice : choices) {
    words.push_back(fmt::format("{} {}", choice.value, choice.title));
  }
  return fmt::format("{}", fmt::join(words, ", "));
}

// "{0,1}"
std::string valuesOf(std::span<const RecorderChoice> choices) {
  std::vector<std::string> values;
  for (const RecorderChoice& choice : choices) values.push_back(std::to_string(choice.value));
  return fmt::format("{{{}}}", fmt::join(values, ","));
}

CLI::Validator valueOf(std::span<const RecorderChoice> choices) {
  const auto check = [choices](const std::string& text) -> std::string {
    for (const RecorderChoice& choice : choices) {
      if (text == std::to_string(choice.value)) return "";
    }
    return fmt::format("the recorder does not know the value {}, only {}", text, listed(choices));
  };
  return {check, valuesOf(choices)};
}

constexpr const char* kFooter =
    "Without a word: status.\n"
    "\n"
    "--json prints one object a line. status and watch: connected, device_id, firmware,\n"
    "sd_present, sd_used, sd_capacity, remaining, battery_type, auto_power_off, and step where\n"
    "a handshake stopped; what is not known is null. connected is true once a handshake has come\n"
    "to its end; of one that stopped there is what was answered so far. monitor: time in\n"
    "seconds, direction (out or in), bytes, meaning, values; or time and event. set-...:\n"
    "connected, the value, acknowledged.\n"
    "\n"
    "--simulate needs no recorder. --simulate=WORDS, with commas between them, makes it:\n"
    "  firmware=X.YZ battery=N auto-power-off=N remaining=HH:MM:SS card=USED/CAPACITY (bytes)\n"
    "  no-card unplugged ump\n"
    "  silent@REQUEST (also slow, wrong-length, long-identity, garbage, split, merged,\n"
    "    interleaved, disappear) at identity, start, version, card, battery, auto-power-off,\n"
    "    date-time, set-battery, set-auto-power-off\n"
    "  plug@SECONDS (also unplug, report, eject, insert, behave)\n"
    "\n"
    "Exit status: 0 done, also when watch or monitor is interrupted; 1 no recorder, no answer\n"
    "or no MIDI; 2 wrong usage, or a value that the recorder does not know.\n"
    "\n"
    "Environment: MIXDECK_MIDI=bytes or ump forces the kind of packets.";

}  // namespace

CLI::App* DeviceCommand::declare(CLI::App& program) {
  _device = program.add_subcommand(LiveCommand::kDevice.name, LiveCommand::kDevice.description);
  _device->require_subcommand(0, 1);
  _device->footer(kFooter);
  declareOptions();
  declareWords();
  return _device;
}

void DeviceCommand::declareOptions() {
  _device->add_flag("--json", _asJson, "JSON on standard output, and nothing else");
  _device
      ->add_option("--wait", _wait,
                   "How long to wait for the recorder and its answers, seconds or H:MM:SS; 5.5 "
                   "unless said otherwise, while watch and monitor wait for a recorder without end")
      ->type_name("TIME")
      ->transform(TimeText::check());
  _device->add_flag("--simulate", _simulate, "A simulated recorder instead of one that is attached")
      ->check(CLI::Validator(checkScript, ""));
}

void DeviceCommand::declareWords() {
  const auto add = [this](const char* word, const char* what) {
    CLI::App* command = _device->add_subcommand(word, what);
    command->fallthrough();
    return command;
  };
  add("status", "What the recorder is and how it is set");
  _watch = add("watch", "The same, and every change until interrupted");
  _setBattery = add("set-battery", "Change the battery type");
  _setAutoPowerOff = add("set-auto-power-off", "Change the time after which it turns itself off");
  _monitor = add("monitor", "Every message both ways, with what it means, until interrupted");
  const auto types = RecorderSettings::batteryTypes();
  const auto times = RecorderSettings::autoPowerOffTimes();
  _setBattery->add_option("N", _value, listed(types))->required()->check(valueOf(types));
  _setAutoPowerOff->add_option("N", _value, listed(times))->required()->check(valueOf(times));
}

int DeviceCommand::run() {
  int argumentCount = 1;
  std::string name = "mixdeck-cli";
  std::array<char*, 2> arguments{name.data(), nullptr};
  const QCoreApplication application(argumentCount, arguments.data());
  // Standard output has the record; monitor shows what would be logged, and more.
  MIDILog::setSink([](std::string_view) {});
  const int status = _simulate.empty() ? runOverMIDI() : runSimulated();
  // Nothing of the system may outlive the event loop.
  MIDIPlatform::install(std::make_shared<AbsentMIDISystem>(), std::make_shared<QtMIDIClock>());
  return status;
}

int DeviceCommand::runOverMIDI() const {
  const auto system = AlsaMIDISystem::create();
  MIDIPlatform::install(system, std::make_shared<QtMIDIClock>());
  return runTask([&system] { return system->unavailableReason(); });
}

int DeviceCommand::runSimulated() const {
  std::string fault;
  RecorderScript script = RecorderScript::parse(wordsOf(_simulate), fault);
  SimulatedLink link(script.kind());
  link.install();
  script.play(link);
  return runTask([] { return std::string(); });
}

int DeviceCommand::runTask(const std::function<std::string()>& unavailable) const {
  return makeTask({_wait, _asJson, unavailable})->run();
}

std::unique_ptr<DeviceTask> DeviceCommand::makeTask(DeviceTask::Setup setup) const {
  using Setting = DeviceSettingTask::Setting;
  const auto value = static_cast<std::uint8_t>(_value);
  if (_setBattery->parsed()) {
    return std::make_unique<DeviceSettingTask>(std::move(setup), Setting::BatteryType, value);
  }
  if (_setAutoPowerOff->parsed()) {
    return std::make_unique<DeviceSettingTask>(std::move(setup), Setting::AutoPowerOff, value);
  }
  if (_watch->parsed()) return std::make_unique<DeviceWatchTask>(std::move(setup));
  if (!_monitor->parsed()) return std::make_unique<DeviceStatusTask>(std::move(setup));
  const auto tap = std::make_shared<DeviceTap>(MIDIPlatform::system());
  MIDIPlatform::install(tap, MIDIPlatform::sharedClock());
  return std::make_unique<DeviceMonitorTask>(std::move(setup), *tap);
}
