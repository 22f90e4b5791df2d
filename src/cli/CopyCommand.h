// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "cli/Command.h"
#include "cli/ProgressLine.h"
#include "transfer/CardCopy.h"

/// `copy`: brings the takes of a card home, verified, with a manifest.
class CopyCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  [[nodiscard]] bool copy(ProgressLine& line) const;
  void tell(const CardCopy::Result& result, ProgressLine& line) const;
  [[nodiscard]] std::string problemOf(CardCopy::Obstacle obstacle, const std::string& reason) const;

  std::filesystem::path _card;
  std::filesystem::path _destination;
  bool _isQuiet = false;
};
