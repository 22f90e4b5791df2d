// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/InfoCommand.h"

#include <nlohmann/json.hpp>

#include "cli/FileDescription.h"
#include "cli/Interrupt.h"
#include "cli/Problem.h"
#include "cli/Streams.h"

CLI::App* InfoCommand::declare(CLI::App& program) {
  CLI::App* command = program.add_subcommand("info", "Tell what a file is and holds");
  command->add_flag("--json", _asJson, "One JSON object a line for each file");
  _list.add(*command, _files, "Files");
  command->callback([this] { _list.complete(_files); });
  return command;
}

int InfoCommand::run() {
  int status = kDone;
  for (const std::filesystem::path& file : _files) {
    if (Interrupt::requested()) {
      Streams::err(std::string(kCancelled) + "\n");
      return kFailed;
    }
    const FileDescription description(file);
    // A name or text that is not UTF-8 is shown with replacement characters.
    constexpr auto kReplace = nlohmann::ordered_json::error_handler_t::replace;
    Streams::out(_asJson ? description.json().dump(-1, ' ', false, kReplace) + "\n"
                         : description.text());
    if (description.isRecording()) continue;
    const auto reason = description.json()["reason"].get<std::string>();
    const std::string_view text = description.isReadable() ? kFileNotSupported : kFailToOpen;
    Streams::err(sourceProblem(file, text, reason) + "\n");
    status = kFailed;
  }
  return status;
}
