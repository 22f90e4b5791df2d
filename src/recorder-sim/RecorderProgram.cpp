// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "recorder-sim/RecorderProgram.h"

#include <fmt/format.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <array>
#include <charconv>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "midi/simulator/RecorderWords.h"
#include "recorder-sim/RawDeviceEnd.h"
#include "recorder-sim/SequencerEnd.h"

namespace {

using Bytes = SimulatedRecorder::Bytes;

void print(const nlohmann::ordered_json& line) {
  std::puts(line.dump().c_str());
  std::fflush(stdout);
}

/// Pairs of digits, blanks between them or not.
std::optional<Bytes> bytesOf(std::string_view hexadecimal) {
  std::string digits;
  for (const char each : hexadecimal) {
    if (each != ' ') digits += each;
  }
  Bytes bytes(digits.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char* const pair = digits.data() + 2 * i;
    if (std::from_chars(pair, pair + 2, bytes[i], 16).ptr != pair + 2) return std::nullopt;
  }
  if (digits.empty() || digits.size() % 2 != 0) return std::nullopt;
  return bytes;
}

}  // namespace

RecorderProgram::RecorderProgram(RecorderOptions options)
    : _options(std::move(options)), _recorder(_clock) {
  for (const std::string& word : _options.words) RecorderWords::apply(word, _recorder);
}

RecorderProgram::~RecorderProgram() = default;

std::string RecorderProgram::checkWord(const std::string& word) {
  QtMIDIClock clock;
  SimulatedRecorder recorder(clock);
  return RecorderWords::apply(word, recorder) ? "" : "this means nothing: " + word;
}

std::string RecorderProgram::start() {
  _cable = makeCable();
  _keyboard = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(_keyboard.get(), &QSocketNotifier::activated, [this] { typed(); });
  reportLater();
  std::string problem = _cable->plugIn();
  if (problem.empty()) logEvent("ready");
  return problem;
}

std::unique_ptr<CableEnd> RecorderProgram::makeCable() {
  CableEnd::Told told{[this] { pluggedIn(); }, [this] { pulledOut(); },
                      [this](std::span<const std::uint8_t> bytes) { received(bytes); }};
  if (_options.device.empty()) {
    return std::make_unique<SequencerEnd>(_options.portName, _options.sendsWhole, told);
  }
  const auto content =
      _options.hasWords ? RawDeviceEnd::Content::Words : RawDeviceEnd::Content::Bytes;
  return std::make_unique<RawDeviceEnd>(_options.device, content, told);
}

void RecorderProgram::pluggedIn() {
  _recorder.plugIn(
      {[this](const Bytes& bytes) { transmit(bytes); }, [this] { _cable->pullOut(); }});
  logEvent("plugged in");
}

void RecorderProgram::pulledOut() {
  _recorder.pullOut();
  logEvent("pulled out");
}

void RecorderProgram::received(std::span<const std::uint8_t> bytes) {
  _recorder.receive(bytes);
  for (; _logged < _recorder.received().size(); ++_logged) {
    logMessage("program", _recorder.received()[_logged]);
  }
}

void RecorderProgram::transmit(const Bytes& bytes) {
  logMessage("recorder", bytes);
  _cable->transmit(bytes);
}

void RecorderProgram::reportLater() {
  if (_options.reportEvery <= 0) return;
  _report = _clock.after(_options.reportEvery, [this] {
    const auto fired = std::move(_report);
    _recorder.reportCard();
    reportLater();
  });
}

// The end of the input is no reason to go: it may have been none from the start.
void RecorderProgram::typed() {
  std::array<char, 65'536> buffer{};
  const ssize_t size = read(STDIN_FILENO, buffer.data(), buffer.size());
  if (size <= 0) {
    _keyboard->setEnabled(false);
    return;
  }
  _line.append(buffer.data(), static_cast<std::size_t>(size));
  for (std::size_t end = _line.find('\n'); end != std::string::npos; end = _line.find('\n')) {
    const std::string line = _line.substr(0, end);
    _line.erase(0, end + 1);
    carryOut(line);
  }
}

void RecorderProgram::carryOut(const std::string& line) {
  constexpr std::string_view kSend = "send ";
  if (line.starts_with(kSend)) {
    sendTyped(std::string_view(line).substr(kSend.size()));
  } else if (!line.empty() && !carryOutWord(line)) {
    fmt::print(stderr, "mixdeck-recorder-sim: this means nothing: {}\n", line);
  }
}

bool RecorderProgram::carryOutWord(std::string_view word) {
  if (word == "plug") {
    _cable->plugIn();
  } else if (word == "unplug") {
    _cable->pullOut();
  } else if (word == "report") {
    _recorder.reportCard();
  } else if (word == "quit") {
    QCoreApplication::quit();
  } else {
    return RecorderWords::apply(word, _recorder);
  }
  return true;
}

void RecorderProgram::sendTyped(std::string_view hexadecimal) {
  const auto bytes = bytesOf(hexadecimal);
  if (bytes) {
    transmit(*bytes);
  } else {
    fmt::print(stderr, "mixdeck-recorder-sim: no bytes: {}\n", hexadecimal);
  }
}

void RecorderProgram::logEvent(std::string_view event) const {
  if (_options.logs) print({{"event", event}});
}

void RecorderProgram::logMessage(std::string_view from, const Bytes& bytes) const {
  if (!_options.logs) return;
  const auto request = from == "program" ? recorderRequest(bytes) : std::nullopt;
  nlohmann::ordered_json line = {{"event", "message"}, {"from", from}, {"length", bytes.size()}};
  if (request) line["request"] = RecorderWords::nameOf(*request);
  line["bytes"] = fmt::format("{:02X}", fmt::join(bytes, " "));
  print(line);
}
