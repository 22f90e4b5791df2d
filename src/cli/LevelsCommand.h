// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

#include "cli/Command.h"
#include "cli/StretchOption.h"
#include "export/Export.h"

/// `levels`: the peaks of a stretch of a recording, or what the level meters show for it.
class LevelsCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  /// Exit statuses.
  [[nodiscard]] int tellPeaks(const Export& job) const;
  [[nodiscard]] int tellByMeterRule(const Export& job) const;
  [[nodiscard]] int fail(std::string_view text, std::string_view reason) const;

  std::filesystem::path _file;
  StretchOption _stretch;
  double _gain = 0;
  std::optional<double> _angle;
  bool _hasMeterRule = false;
};
