// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Command.h"
#include "cli/ExportPlan.h"
#include "cli/ExportReport.h"
#include "cli/FilesOption.h"
#include "cli/NumberCheck.h"
#include "cli/ProgressLine.h"
#include "cli/RememberedOption.h"
#include "export/Export.h"

/// `export`: decodes recordings into Left/Right files, several at once.
class ExportCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  enum class End { Done, Failed, Cancelled };

  void declareLevel(CLI::App& command);
  void declareTarget(CLI::App& command);
  /// False where the folder for the targets is not to be had, which has been said.
  [[nodiscard]] bool prepareFolder() const;
  [[nodiscard]] unsigned parallelJobs() const;
  [[nodiscard]] End guardedExport(const ExportPlan::Item& item, std::size_t index,
                                  ProgressLine& line) const;
  [[nodiscard]] End exportItem(const ExportPlan::Item& item, std::size_t index,
                               ProgressLine& line) const;
  /// Empty where nothing stands against it, else the line that says what does.
  [[nodiscard]] std::string refusal(const ExportPlan::Item& item, const Export& job) const;
  /// How another place for the output is chosen.
  [[nodiscard]] std::string_view elsewhere() const;
  void warn(const Export& job, ProgressLine& line) const;
  [[nodiscard]] TakeLevel levelOf(const Export& job, ProgressLine& line) const;
  void prepare(Export& job, const TakeLevel& level) const;
  /// Says what is to be known before the work.
  void announce(const ExportReport& report, const Export& job, ProgressLine& line) const;
  void tell(const ExportPlan::Item& item, const Export& job, const TakeLevel& level,
            ProgressLine& line) const;
  [[nodiscard]] ExportReport::Settings settings(const TakeLevel& level) const;
  [[nodiscard]] bool is24bit() const { return _format == "24"; }

  std::vector<std::filesystem::path> _files;
  FilesOption _list;
  std::filesystem::path _output;
  std::filesystem::path _outputFolder;
  std::optional<double> _angle;
  double _gain = 0;
  RememberedOption _remembered;
  std::optional<double> _loudness;
  double _truePeak = -1;
  std::string _format = "24";
  std::string _rf64 = "auto";
  unsigned _jobs = 0;
  bool _keepsMetadata = false;
  bool _normalize = false;
  bool _force = false;
  bool _isDryRun = false;
  bool _isQuiet = false;
};
