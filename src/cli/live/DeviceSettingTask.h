// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include "cli/live/DeviceTask.h"

/// `device set-battery` and `device set-auto-power-off`: changes a setting and waits for the
/// acknowledgement.
class DeviceSettingTask final : public DeviceTask {
 public:
  enum class Setting { BatteryType, AutoPowerOff };

  /// `value` is one that the recorder knows.
  DeviceSettingTask(Setup setup, Setting setting, std::uint8_t value);

 private:
  void onRecord() override;
  void onStopped(std::int64_t step) override;
  void onLost() override { _isSent = false; }
  void onAbsent(std::int64_t /*step*/) override { showJson(false, false); }
  void onLate() override { refuse(); }
  void onTick() override;

  void acknowledged();
  void refuse();
  void showJson(bool isConnected, bool isAcknowledged);
  [[nodiscard]] std::string name() const;

  Setting _setting;
  std::uint8_t _value;
  bool _isSent = false;
};
