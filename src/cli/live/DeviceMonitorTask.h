// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "cli/live/DeviceTap.h"
#include "cli/live/DeviceTask.h"

/// `device monitor`: every message both ways with its meaning, until interrupted.
class DeviceMonitorTask final : public DeviceTask {
 public:
  /// `tap` is the system of the installed platform.
  DeviceMonitorTask(Setup setup, DeviceTap& tap);

 private:
  [[nodiscard]] Length length() const override { return Length::UntilInterrupted; }
  void onRecord() override {}
  void onStopped(std::int64_t step) override { event(noAnswer(step)); }
  void onLost() override { event("The recorder is gone."); }
  void onConnected() override { event("The recorder is there."); }

  void event(const std::string& what);
  void message(DeviceTap::Way way, const DeviceTap::Bytes& bytes);
  [[nodiscard]] double seconds() const;

  std::uint64_t _start;
};
