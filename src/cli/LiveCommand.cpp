// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/LiveCommand.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "cli/Printable.h"
#include "cli/ProgramBeside.h"
#include "cli/Streams.h"

namespace {

constexpr const char* kAllWords = "--help-json";  // those of these commands, too

}  // namespace

bool LiveCommand::isMeant(std::string_view word) {
  return word == kPlay.name || word == kDevice.name || word == kAllWords;
}

int LiveCommand::handOver(char** arguments) {
  const std::string path = ProgramBeside::path(kProgram);
  execv(path.c_str(), arguments);
  const std::string reason = std::generic_category().message(errno);
  Streams::err(printable(fmt::format("mixdeck-cli: {}: {}; install Mixdeck again", path, reason)) +
               "\n");
  return kFailed;
}

CLI::App* LiveCommand::declare(CLI::App& program) {
  return program.add_subcommand(_words.name, _words.description)->prefix_command();
}
