// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "cli/Command.h"
#include "cli/FilesOption.h"
#include "cli/ProgressLine.h"
#include "transfer/TakeDiagnosis.h"
#include "transfer/TakeRepair.h"

/// `repair`: salvages takes whose recording broke off into new files beside them.
class RepairCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  void ownTakes();
  [[nodiscard]] bool repair(std::size_t index, ProgressLine& line);
  /// Tells of one that is not.
  [[nodiscard]] bool isBroken(const std::filesystem::path& take, const TakeDiagnosis& diagnosis,
                              ProgressLine& line) const;
  [[nodiscard]] bool salvage(std::size_t index, TakeRepair& repair, ProgressLine& line);
  [[nodiscard]] std::string reportOf(const std::filesystem::path& take,
                                     const TakeDiagnosis& diagnosis) const;

  FilesOption _list;
  std::vector<std::filesystem::path> _files;
  /// What this run reads or writes, by `FileKey`, and of which take.
  std::map<std::filesystem::path, std::filesystem::path> _owners;
  bool _force = false;
  bool _isDryRun = false;
  bool _isQuiet = false;
};
