// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/live/DeviceStatusTask.h"

#include "cli/Command.h"

void DeviceStatusTask::onRecord() {
  const DeviceReport report(info(), 0);
  if (say(asJson() ? report.json() : report.text())) end(Command::kDone);
}

void DeviceStatusTask::onStopped(std::int64_t step) {
  const DeviceReport report(info(), step);
  if (say(asJson() ? report.json() : report.text())) fail(noAnswer(step));
}

// Text says it on standard error alone.
void DeviceStatusTask::onAbsent(std::int64_t step) {
  if (asJson()) say(DeviceReport(step).json());
}

void DeviceWatchTask::onLost() {
  if (_hasShown) show(DeviceReport());
}

void DeviceWatchTask::onAbsent(std::int64_t step) {
  if (asJson()) show(DeviceReport(step));
}

void DeviceWatchTask::show(const DeviceReport& report) {
  const bool isNew = !_hasShown || report.json() != _shown.json();
  if (!isNew) return;
  say(asJson() ? report.json() : _hasShown ? report.text(_shown) : report.text());
  _shown = report;
  _hasShown = true;
}
