// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <array>
#include <clocale>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "base/Version.h"
#include "cli/Command.h"
#include "cli/DemoCommand.h"
#include "cli/DeviceCommand.h"
#include "cli/ExportCommand.h"
#include "cli/InfoCommand.h"
#include "cli/Interrupt.h"
#include "cli/LevelsCommand.h"
#include "cli/MeasureCommand.h"
#include "cli/PlayCommand.h"
#include "cli/Problem.h"
#include "cli/Streams.h"

namespace {

int runProgram(int argc, char** argv) {
  CLI::App program("Decodes, plays, measures and describes the recordings of the TARN J4.",
                   "mixdeck-cli");
  program.set_version_flag("--version", std::string("mixdeck-cli ") + kVersion);
  program.require_subcommand(1);
  ExportCommand exportCommand;
  InfoCommand info;
  LevelsCommand levels;
  MeasureCommand measure;
  PlayCommand play;
  DeviceCommand device;
  DemoCommand demo;
  std::vector<std::pair<CLI::App*, Command*>> commands;
  for (Command* command :
       std::to_array<Command*>({&exportCommand, &info, &levels, &measure, &play, &device, &demo})) {
    commands.emplace_back(command->declare(program), command);
  }
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? Command::kDone : Command::kUsage;
  }
  for (const auto& [words, command] : commands) {
    if (words->parsed()) return command->run();
  }
  return Command::kUsage;
}

}  // namespace

int main(int argc, char** argv) {
  Interrupt::install();
  try {
    const int status = runProgram(argc, argv);
    const std::string failure = Streams::failure();
    if (failure.empty()) return status;
    Streams::err("mixdeck-cli: standard output: " + failure + "\n");
  } catch (const std::exception& error) {
    Streams::err("mixdeck-cli: " + reasonOf(error) + "\n");
  }
  return Command::kFailed;
}
