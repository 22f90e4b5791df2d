// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <vector>

#include "cli/Command.h"
#include "cli/FilesOption.h"

/// `info`: tells what there is to know of files: text, or with --json one object a line and file.
class InfoCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  std::vector<std::filesystem::path> _files;
  FilesOption _list;
  bool _asJson = false;
};
