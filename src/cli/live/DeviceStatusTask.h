// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "cli/live/DeviceReport.h"
#include "cli/live/DeviceTask.h"

/// `device status`: the record once, also of a handshake that stopped half way.
class DeviceStatusTask final : public DeviceTask {
 public:
  using DeviceTask::DeviceTask;

 private:
  void onRecord() override;
  void onStopped(std::int64_t step) override;
  void onAbsent(std::int64_t step) override;
};

/// `device watch`: the record, and every change of it, until interrupted. A recorder that goes and
/// comes back is followed.
class DeviceWatchTask final : public DeviceTask {
 public:
  using DeviceTask::DeviceTask;

 private:
  [[nodiscard]] Length length() const override { return Length::UntilInterrupted; }
  void onRecord() override { show(DeviceReport(info(), 0)); }
  void onStopped(std::int64_t step) override { show(DeviceReport(info(), step)); }
  void onLost() override;
  void onWaiting() override { show(DeviceReport()); }
  void onAbsent(std::int64_t step) override;

  void show(const DeviceReport& report);

  DeviceReport _shown;
  bool _hasShown = false;
};
