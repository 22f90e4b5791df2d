// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/TakeAnalyzer.h"
#include "cli/Command.h"
#include "cli/FilesOption.h"
#include "cli/ProgressLine.h"
#include "cli/StretchOption.h"
#include "export/Export.h"

/// `measure`: loudness, peaks and width of recordings, at one width or at all of them, several
/// files at once.
class MeasureCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  using Texts = std::vector<std::optional<std::string>>;

  [[nodiscard]] Texts measureAll() const;
  /// What is printed of a file; none where it could not be measured, which has been said.
  [[nodiscard]] std::optional<std::string> measure(std::size_t index, ProgressLine& line) const;
  [[nodiscard]] std::optional<std::string> guardedMeasure(std::size_t index,
                                                          ProgressLine& line) const;
  [[nodiscard]] std::shared_ptr<const TakeAnalysis> analyse(const Export& job, std::size_t index,
                                                            ProgressLine& line) const;
  [[nodiscard]] TakeAnalyzer::Options options(const Export& job) const;
  [[nodiscard]] std::string text(const std::filesystem::path& file,
                                 const TakeAnalysis& analysis) const;
  [[nodiscard]] std::vector<int> angles() const;
  /// False where the picture cannot be made, which has been said.
  [[nodiscard]] bool plot(const Export& job, const TakeAnalysis& analysis,
                          ProgressLine& line) const;
  [[nodiscard]] std::string savePlot(const std::string& svg) const;
  void checkOptions() const;

  std::vector<std::filesystem::path> _files;
  FilesOption _list;
  std::optional<double> _angle;
  std::string _angles;
  std::filesystem::path _plot;
  double _gain = 0;
  StretchOption _stretch;
  bool _asJson = false;
  bool _asCsv = false;
  bool _isQuiet = false;
};
