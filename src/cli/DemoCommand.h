// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

#include "cli/Command.h"

/// `demo`: writes a small folder of recordings as the recorder would make them, to try things on.
/// Files that exist stay as they are.
class DemoCommand : public Command {
 public:
  CLI::App* declare(CLI::App& program) override;
  int run() override;

 private:
  void tell(const std::string& text) const;
  [[nodiscard]] bool isAllThere() const;

  std::filesystem::path _folder = "mixdeck-demo";
  bool _isQuiet = false;
};
