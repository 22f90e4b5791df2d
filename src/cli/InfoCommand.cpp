// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/InfoCommand.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "cli/FileDescription.h"
#include "cli/Problem.h"

CLI::App* InfoCommand::declare(CLI::App& program) {
  CLI::App* command = program.add_subcommand("info", "Tell what a file is and holds");
  command->add_flag("--json", _asJson, "One JSON object a line for each file");
  command->add_option("FILE", _files, "Files")->required();
  return command;
}

int InfoCommand::run() {
  int status = kDone;
  for (const std::filesystem::path& file : _files) {
    const FileDescription description(file);
    // A name or text that is not UTF-8 is shown with replacement characters.
    constexpr auto kReplace = nlohmann::ordered_json::error_handler_t::replace;
    fmt::print("{}", _asJson ? description.json().dump(-1, ' ', false, kReplace) + "\n"
                             : description.text());
    if (description.isReadable()) continue;
    const auto reason = description.json()["reason"].get<std::string>();
    fmt::print(stderr, "{}\n", problemLine(file, kFailToOpen, reason));
    status = kFailed;
  }
  return status;
}
