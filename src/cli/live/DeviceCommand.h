// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "cli/Command.h"
#include "cli/live/DeviceTask.h"

/// `device`: asks the recorder, changes its settings, or listens to it, over MIDI or with a
/// simulated recorder of this process.
class DeviceCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  void declareOptions();
  void declareWords();
  [[nodiscard]] std::unique_ptr<DeviceTask> makeTask(DeviceTask::Setup setup) const;
  [[nodiscard]] int runOverMIDI() const;
  [[nodiscard]] int runSimulated() const;
  [[nodiscard]] int runTask(const std::function<std::string()>& unavailable) const;

  CLI::App* _device = nullptr;
  CLI::App* _watch = nullptr;
  CLI::App* _monitor = nullptr;
  CLI::App* _setBattery = nullptr;
  CLI::App* _setAutoPowerOff = nullptr;
  bool _asJson = false;
  std::optional<double> _wait;
  std::string _simulate;  ///< "true" without words
  int _value = 0;
};
