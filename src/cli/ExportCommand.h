// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/Command.h"
#include "cli/ExportPlan.h"
#include "cli/NumberCheck.h"
#include "cli/ProgressLine.h"
#include "export/Export.h"

/// `export`: decodes recordings into Left/Right files, several at once.
class ExportCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  [[nodiscard]] unsigned parallelJobs() const;
  [[nodiscard]] bool exportItem(const ExportPlan::Item& item, std::size_t index,
                                ProgressLine& line) const;
  [[nodiscard]] bool isAllowed(const ExportPlan::Item& item, const Export& job,
                               ProgressLine& line) const;
  void tellGain(const ExportPlan::Item& item, const LoudnessGain& found) const;
  [[nodiscard]] std::string levelText() const;
  [[nodiscard]] bool announce(const ExportPlan::Item& item, const Export& job) const;
  [[nodiscard]] bool is24bit() const { return _format == "24"; }

  std::vector<std::filesystem::path> _files;
  std::filesystem::path _output;
  std::filesystem::path _outputFolder;
  double _angle = kDefaultAngle;
  double _gain = 0;
  std::optional<double> _loudness;
  double _truePeak = -1;
  std::string _format = "24";
  unsigned _jobs = 0;
  bool _normalize = false;
  bool _force = false;
  bool _isDryRun = false;
};
