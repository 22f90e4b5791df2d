// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "cli/Command.h"

/// The tool from its command line to its exit status.
class Tool {
 public:
  using Commands = std::vector<std::unique_ptr<Command>>;

  /// All commands, in the order in which they are listed.
  static Commands commands(std::unique_ptr<Command> play, std::unique_ptr<Command> device);

  /// Carries out the command that is asked for, of those that `make` makes. What goes wrong is
  /// said on standard error. To be called once, with the arguments of `main`.
  static int run(int argc, char** argv, const std::function<Commands()>& make);
};
