// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// The device link over the ALSA sequencer, with the way to the record that the window has, told and
// asked by lines: what happens is printed as lines of JSON, and what is typed is done.
//
//   battery N, auto-power-off N    change a setting
//   send LENGTH                    a SysEx message of so many bytes, numbered
//   endpoints                      print what is there
//   quit

#include <fmt/format.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "midi/MIDILog.h"
#include "midi/MIDIManager.h"
#include "midi/MIDIPlatform.h"
#include "midi/MIDISequenceManager.h"
#include "midi/QtMIDIClock.h"
#include "midi/RecorderLink.h"
#include "midi/alsa/AlsaMIDISystem.h"

namespace {

using Json = nlohmann::ordered_json;

void print(const Json& line) {
  std::puts(line.dump().c_str());
  std::fflush(stdout);
}

/// F0, the numbers 0 to 126 over and over, F7.
std::vector<std::uint8_t> numbered(std::size_t length) {
  std::vector<std::uint8_t> bytes(length);
  for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<std::uint8_t>(i % 127);
  bytes.front() = 0xF0;
  bytes.back() = 0xF7;
  return bytes;
}

Json described(const TARNDeviceInfo& info) {
  const auto& v = info._version;
  return {{"firmware", fmt::format("{:c}.{:c}{:c}", v[1], v[2], v[3])},
          {"battery", info._batteryType},
          {"auto_power_off", info._autoPowOffType},
          {"card", info._sdExist},
          {"used", info._sdUsedSize},
          {"capacity", info._sdMaxSize},
          {"remaining", info._sdRemaining}};
}

class Probe {
 public:
  explicit Probe(std::shared_ptr<AlsaMIDISystem> system) : _system(std::move(system)) {
    tellAvailability();
    _system->setAvailabilityObserver([this] { tellAvailability(); });
    listen();
    _link.open();
  }

  void carryOut(const std::string& line) {
    std::istringstream words(line);
    std::string word;
    int number = 0;
    words >> word >> number;
    auto& sequences = MIDISequenceManager::get();
    const auto acknowledged = [word] { print({{"event", "acknowledged"}, {"what", word}}); };
    if (word == "battery") sequences.startChangeBatteryTypeSeq(number, acknowledged);
    if (word == "auto-power-off") sequences.startChangeAutoPowOffSeq(number, acknowledged);
    if (word == "send") send(static_cast<std::size_t>(number));
    if (word == "endpoints") printEndpoints();
    if (word == "quit") QCoreApplication::quit();
  }

 private:
  void tellAvailability() const {
    print({{"event", "availability"},
           {"reason", _system->unavailableReason()},
           {"ump", _system->packetKind() == MIDIPacketKind::EventLists}});
  }

  static void listen() {
    const auto printed = [](const std::uint8_t* bytes, std::int32_t length) {
      const std::vector<std::uint8_t> all(bytes, bytes + length);
      print({{"event", "message"},
             {"length", length},
             {"bytes", fmt::format("{:02X}", fmt::join(all, " "))}});
      return false;
    };
    MIDISequenceManager::get().exeCommand(nullptr, 0, printed);
  }

  static void send(std::size_t length) {
    const auto bytes = numbered(length);
    MIDIManager::get().send(bytes.data(), static_cast<std::int64_t>(bytes.size()));
  }

  void printEndpoints() const {
    Json names = Json::array();
    for (const auto& endpoint : _system->endpoints(MIDIDirection::Source)) {
      names.push_back(endpoint.displayName.value_or("?"));
    }
    print({{"event", "endpoints"}, {"sources", names}});
  }

  void tellLost() const { print({{"event", "disconnected"}, {"step", _link.step()}}); }

  RecorderLink _link{
      {[] {
         print({{"event", "connected"}});
       },
       [] {
         print({{"event", "record"}, {"record", described(*RecorderLink::record())}});
       },
       [this] { tellLost(); }}};
  std::shared_ptr<AlsaMIDISystem> _system;
};

/// The lines that are typed, until the input ends.
void readLines(QSocketNotifier& keyboard, std::string& rest, Probe& probe) {
  std::array<char, 4096> buffer{};
  const ssize_t size = read(STDIN_FILENO, buffer.data(), buffer.size());
  if (size <= 0) {
    keyboard.setEnabled(false);
    QCoreApplication::quit();
    return;
  }
  rest.append(buffer.data(), static_cast<std::size_t>(size));
  for (std::size_t end = rest.find('\n'); end != std::string::npos; end = rest.find('\n')) {
    probe.carryOut(rest.substr(0, end));
    rest.erase(0, end + 1);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  MIDILog::setSink([](std::string_view /*text*/) {});
  const auto system = AlsaMIDISystem::create();
  MIDIPlatform::install(system, std::make_shared<QtMIDIClock>());
  Probe probe(system);
  QSocketNotifier keyboard(STDIN_FILENO, QSocketNotifier::Read);
  std::string rest;
  QObject::connect(&keyboard, &QSocketNotifier::activated,
                   [&] { readLines(keyboard, rest, probe); });
  return QCoreApplication::exec();
}
