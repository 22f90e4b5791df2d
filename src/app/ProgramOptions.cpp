// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ProgramOptions.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <exception>
#include <future>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "base/FileAddress.h"
#include "base/Version.h"
#include "controls/Language.h"
#include "manual/ProgramWords.h"

namespace {

using namespace std::chrono_literals;

// So long a medium may take to tell what is there. Then the window looks, which can wait.
constexpr auto kAnswersWithin = 500ms;

// Desktops hand addresses over. Changed into a path; what is wrong with it, or nothing.
std::string problemOf(std::string& start) {
  if (!start.starts_with("file:")) return {};
  const auto files = FileAddress::pathsIn(start);
  if (files.empty()) return "Not a file on this machine: " + start;
  start = files.front().native();
  return {};
}

// What is wrong with the first that is not there, or nothing.
std::string firstProblem(const std::vector<std::string>& starts) {
  for (const std::string& start : starts) {
    if (std::string problem = CLI::ExistingPath(start); !problem.empty()) return problem;
  }
  return {};
}

// The same, asked on a thread of its own: none is known of a medium that does not answer.
std::string problemKnownSoon(const std::vector<std::string>& starts) {
  std::promise<std::string> found;
  std::future<std::string> problem = found.get_future();
  try {
    std::thread([found = std::move(found), starts]() mutable {
      found.set_value(firstProblem(starts));
    }).detach();
  } catch (const std::exception&) {  // no thread, or no memory for one
    return {};
  }
  return problem.wait_for(kAnswersWithin) == std::future_status::ready ? problem.get()
                                                                       : std::string();
}

std::vector<std::string> languages() {
  std::vector<std::string> tags;
  for (const QString& tag : Language::all()) tags.push_back(tag.toStdString());
  return tags;
}

}  // namespace

ProgramOptions ProgramOptions::parse(int argc, const char* const* argv) {
  constexpr int kUsage = 2;
  ProgramOptions options;
  std::vector<std::string> starts;
  CLI::App program("Browses, plays and exports the recordings of the TARN J4.", "mixdeck");
  program.set_version_flag("--version", std::string("mixdeck ") + kFullVersion);
  const CLI::Option* places =
      program
          .add_option("FOLDER|FILE", starts,
                      "Folder to show, or recording to show and play; of several the first, with "
                      "those others selected that are in its folder")
          ->type_name("")
          ->transform(CLI::Validator(problemOf, ""));
  program.add_flag("--simulate-recorder", options.simulatesRecorder,
                   "Behave as if a recorder were connected");
  program
      .add_option("--language", options.language,
                  "Language of the window, in place of the desktop's")
      ->type_name("LANGUAGE")
      ->check(CLI::IsMember(languages()));
  program.add_flag("--log", options.showsLog,
                   "Show the log lines here too; they are in the system's log");
  if (ProgramWords::areAskedFor(argc, argv)) {
    std::puts(ProgramWords::json(program, kFullVersion).c_str());
    options.status = 0;
    return options;
  }
  try {
    program.parse(argc, argv);
    const std::string problem = problemKnownSoon(starts);
    if (!problem.empty()) throw CLI::ValidationError(places->get_name(), problem);
    options.starts.assign(starts.begin(), starts.end());
  } catch (const CLI::ParseError& error) {
    options.status = program.exit(error) == 0 ? 0 : kUsage;
  }
  return options;
}
