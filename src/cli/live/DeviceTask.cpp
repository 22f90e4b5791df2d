// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/DeviceTask.h"

#include <fmt/format.h>

#include <QCoreApplication>
#include <QTimer>
#include <chrono>
#include <utility>

#include "cli/Command.h"
#include "cli/Interrupt.h"
#include "cli/Streams.h"
#include "cli/live/DeviceReport.h"

namespace {

constexpr int kTickMilliseconds = 20;
// A handshake that is given up takes at most a second of grace and twice two seconds.
constexpr double kUsualWait = 5.5;

QDeadlineTimer deadlineIn(double seconds) {
  const std::chrono::duration<double> exact(seconds);
  return {std::chrono::round<std::chrono::milliseconds>(exact)};
}

}  // namespace

DeviceTask::DeviceTask(Setup setup)
    : _setup(std::move(setup)), _deadline(QDeadlineTimer::Forever) {}

int DeviceTask::run() {
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [this] { tick(); });
  timer.start(kTickMilliseconds);
  start();
  if (!_status) QCoreApplication::exec();
  return _status.value_or(Command::kFailed);
}

void DeviceTask::start() {
  const std::string reason = _setup.unavailable();
  if (!reason.empty()) {
    onAbsent(_link.step());
    return fail(reason + " --simulate needs none.");
  }
  const bool isPatient = length() == Length::UntilInterrupted && !_setup.wait;
  if (!isPatient) _deadline = deadlineIn(_setup.wait.value_or(kUsualWait));
  _link.open();
  if (_manager.state() == MIDIManager::Disconnected) onWaiting();
}

void DeviceTask::connected() {
  _phase = Phase::Asking;
  if (length() == Length::UntilInterrupted) {
    _deadline = deadlineIn(_setup.wait.value_or(kUsualWait));
  }
  onConnected();
}

// A handshake that was given up may come to its end all the same; only who goes on still waits.
void DeviceTask::recordChanged() {
  const bool goesOn = length() == Length::UntilInterrupted;
  if (_phase == Phase::Asking || (_phase == Phase::Stopped && goesOn)) {
    _phase = Phase::Ready;
    if (goesOn) _deadline = QDeadlineTimer(QDeadlineTimer::Forever);
  }
  if (_phase == Phase::Ready) onRecord();
}

void DeviceTask::lost() {
  _phase = Phase::Absent;
  if (length() == Length::UntilInterrupted) _deadline = QDeadlineTimer(QDeadlineTimer::Forever);
  if (!_setup.unavailable().empty()) warn(_setup.unavailable());
  onLost();
}

void DeviceTask::tick() {
  if (Interrupt::requested()) {
    return length() == Length::UntilInterrupted ? end(Command::kDone) : fail("Interrupted.");
  }
  if (_phase == Phase::Asking && !_link.isAsking()) stop();
  if (_deadline.hasExpired()) expire();
  if (!_status) onTick();
}

void DeviceTask::stop() {
  _phase = Phase::Stopped;
  _deadline = QDeadlineTimer(QDeadlineTimer::Forever);
  onStopped(_link.step());
}

void DeviceTask::expire() {
  _deadline = QDeadlineTimer(QDeadlineTimer::Forever);
  if (_phase == Phase::Asking) return stop();
  if (_phase != Phase::Absent) return onLate();
  onAbsent(_link.step());
  fail(absence());
}

std::string DeviceTask::absence() const {
  if (_manager.state() != MIDIManager::Disconnected) {
    return "The recorder is there, but the time to wait was over before it could be asked.";
  }
  const std::int64_t step = _link.step();
  if (step == 0) {
    return "No recorder found. Connect it over USB and turn it on; --simulate needs none.";
  }
  return fmt::format("The recorder was unplugged. The last that it was asked for: {} (step {}).",
                     DeviceReport::stepName(step), step);
}

std::string DeviceTask::noAnswer(std::int64_t step) {
  return fmt::format("The recorder does not answer: {} (step {}). Plug it in again.",
                     DeviceReport::stepName(step), step);
}

void DeviceTask::end(int status) {
  if (!_status) _status = status;
  QCoreApplication::quit();
}

void DeviceTask::fail(std::string_view reason) {
  if (_status) return;
  warn(reason);
  end(Command::kFailed);
}

void DeviceTask::warn(std::string_view reason) {
  Streams::err(fmt::format("mixdeck-cli: {}\n", reason));
}

bool DeviceTask::say(const std::string& text) {
  Streams::out(text);
  if (Streams::failure().empty() && !Streams::isReaderGone()) return true;
  if (Streams::isReaderGone()) end(Command::kDone);
  fail("Cannot write to standard output.");
  return false;
}
