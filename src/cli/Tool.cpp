// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/Tool.h"

#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "base/ErrorReason.h"
#include "base/StandardStreams.h"
#include "base/Version.h"
#include "cli/CopyCommand.h"
#include "cli/DemoCommand.h"
#include "cli/ExportCommand.h"
#include "cli/InfoCommand.h"
#include "cli/Interrupt.h"
#include "cli/LevelsCommand.h"
#include "cli/MeasureCommand.h"
#include "cli/NearestWord.h"
#include "cli/Printable.h"
#include "cli/Problem.h"
#include "cli/RepairCommand.h"
#include "cli/Streams.h"
#include "cli/VerifyCommand.h"
#include "manual/ProgramWords.h"

namespace {

constexpr const char* kFooter =
    "Every command has --help.\n"
    "\n"
    "Exit status: 0 all done; 1 something failed, which standard error tells with a line a file; "
    "2\n"
    "wrong usage; play has 128 and the number of the signal that ended it.\n"
    "\n"
    "Environment: NO_COLOR, where it is set and not empty, keeps colours out of what standard "
    "error\n"
    "tells on a terminal.\n"
    "\n"
    "Examples:\n"
    "  mixdeck-cli export --angle 90 --gain 6 R0001.WAV\n"
    "  mixdeck-cli export --loudness -16 --output-dir Decoded *.WAV\n"
    "  find . -name '*.WAV' -print0 | mixdeck-cli measure --csv --files-from -";

/// The command that the words lead to, as far as they are ones, and these words.
struct Asked {
  const CLI::App* command;
  std::string words;

  explicit Asked(const CLI::App& program) : command(&program), words(program.get_name()) {
    for (auto parsed = command->get_subcommands(); !parsed.empty();
         parsed = command->get_subcommands()) {
      command = parsed.front();
      words += " " + command->get_name();
    }
  }
};

// Of a word that stands where a command should, what may have been meant; empty where none does.
std::string unknownCommand(const CLI::App& asked, const std::vector<std::string>& rest) {
  std::vector<std::string> known;
  for (const CLI::App* command : asked.get_subcommands([](const CLI::App*) { return true; })) {
    known.push_back(command->get_name());
  }
  std::string said;
  for (const std::string& word : rest) {
    if (known.empty() || word.starts_with('-')) continue;
    const auto nearest = NearestWord::of(word, known);
    if (nearest) return word + " is no command. Did you mean " + *nearest + "?";
    if (said.empty()) said = word + " is no command";
  }
  return said;
}

// One line, as of anything else that goes wrong.
std::string usageLine(const CLI::App& program, const CLI::ParseError& error) {
  const Asked asked(program);
  std::string said = unknownCommand(*asked.command, program.remaining(true));
  if (said.empty()) said = error.what();
  if (!said.ends_with('?')) said += "; see " + asked.words + " --help";
  return "mixdeck-cli: " + printable(said) + "\n";
}

int runOneOf(const Tool::Commands& commands, int argc, char** argv) {
  CLI::App program(
      "Decodes, plays, measures, describes, brings home and salvages the recordings of the TARN "
      "J4.",
      "mixdeck-cli");
  program.set_version_flag("--version", std::string("mixdeck-cli ") + kFullVersion);
  program.require_subcommand(1);
  std::vector<std::pair<CLI::App*, Command*>> declared;
  for (const auto& command : commands) {
    declared.emplace_back(command->declare(program), command.get());
  }
  program.footer(kFooter);  // the commands would have it too, were it there before them
  if (ProgramWords::areAskedFor(argc, argv)) {
    Streams::out(ProgramWords::json(program, kFullVersion) + "\n");
    return Command::kDone;
  }
  try {
    program.parse(argc, argv);
  } catch (const CLI::RuntimeError& error) {  // has been told
    return error.get_exit_code();
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return program.exit(error);  // help, or the version
    Streams::err(usageLine(program, error));
    return Command::kUsage;
  }
  for (const auto& [words, command] : declared) {
    if (words->parsed()) return command->run();
  }
  return Command::kUsage;
}

}  // namespace

Tool::Commands Tool::commands(std::unique_ptr<Command> play, std::unique_ptr<Command> device) {
  Commands made;
  made.push_back(std::make_unique<ExportCommand>());
  made.push_back(std::make_unique<InfoCommand>());
  made.push_back(std::make_unique<LevelsCommand>());
  made.push_back(std::make_unique<MeasureCommand>());
  made.push_back(std::move(play));
  made.push_back(std::make_unique<CopyCommand>());
  made.push_back(std::make_unique<VerifyCommand>());
  made.push_back(std::make_unique<RepairCommand>());
  made.push_back(std::move(device));
  made.push_back(std::make_unique<DemoCommand>());
  return made;
}

int Tool::run(int argc, char** argv, const std::function<Commands()>& make) {
  StandardStreams::reserve();
  Interrupt::install();
  try {
    const int status = runOneOf(make(), argc, argv);
    const std::string failure = Streams::failure();
    if (failure.empty()) return status;
    Streams::err("mixdeck-cli: standard output: " + failure + "\n");
  } catch (const std::exception& error) {
    Streams::err("mixdeck-cli: " + reasonOf(error) + "\n");
  }
  return Command::kFailed;
}
