// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Tool.h"
#include "cli/live/DeviceCommand.h"
#include "cli/live/PlayCommand.h"

// What `mixdeck-cli` hands over to this program, which knows the words of all commands.
int main(int argc, char** argv) {
  return Tool::run(argc, argv, [] {
    return Tool::commands(std::make_unique<PlayCommand>(), std::make_unique<DeviceCommand>());
  });
}
