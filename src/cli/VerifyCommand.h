// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "cli/Command.h"
#include "cli/ProgressLine.h"
#include "transfer/FolderCheck.h"

/// `verify`: holds the files of a folder to its manifests.
class VerifyCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  [[nodiscard]] bool verify(ProgressLine& line) const;
  [[nodiscard]] std::string problemOf(const FolderCheck& check) const;

  std::filesystem::path _folder;
  bool _isQuiet = false;
};
