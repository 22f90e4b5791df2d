// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <span>

#include "cli/LiveCommand.h"
#include "cli/Tool.h"

int main(int argc, char** argv) {
  const std::span words(argv, static_cast<std::size_t>(argc));
  if (words.size() > 1 && LiveCommand::isMeant(words[1])) return LiveCommand::handOver(argv);
  return Tool::run(argc, argv, [argv] {
    return Tool::commands(std::make_unique<LiveCommand>(LiveCommand::kPlay, argv),
                          std::make_unique<LiveCommand>(LiveCommand::kDevice, argv));
  });
}
