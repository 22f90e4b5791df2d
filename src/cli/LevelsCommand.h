// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

#include "cli/Command.h"
#include "cli/NumberCheck.h"

/// `levels`: the two values that the level meters take for a stretch of a recording.
class LevelsCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  std::filesystem::path _file;
  double _from = 0;
  double _to = 0;
  double _gain = 0;
  double _angle = kDefaultAngle;
};
