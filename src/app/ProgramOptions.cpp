// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ProgramOptions.h"

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <future>
#include <string>
#include <system_error>
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

// What is wrong with a word, or nothing.
std::string emptiness(const std::string& start) {
  return start.empty() ? "is empty" : "";
}

constexpr const char* kElsewhere = "Not a file on this machine; name a folder or a recording on it";

// The reason, and what to do about it.
std::string withAdvice(const std::error_code& error) {
  std::string reason = error.message();
  if (error == std::errc::no_such_file_or_directory)
    return reason + "; check its name, and that its card or disk is there";
  if (error == std::errc::not_a_directory) return reason + "; check the folders in its name";
  if (error == std::errc::permission_denied)
    return reason + "; its owner can let you into its folder, with chmod";
  return reason;
}

// What is wrong with it, or nothing.
std::string problemOf(const std::string& start) {
  std::error_code error;
  if (std::filesystem::exists(std::filesystem::status(start, error))) return {};
  const bool isAddress = start.find("://") != std::string::npos;
  return start + ": " + (isAddress ? kElsewhere : withAdvice(error));
}

// What is wrong with the first that is not there, or nothing.
std::string firstProblem(const std::vector<std::string>& starts) {
  for (const std::string& start : starts) {
    if (std::string problem = problemOf(start); !problem.empty()) return problem;
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

// Desktops hand addresses over. An address of elsewhere stays as it is.
void makePaths(std::vector<std::string>& starts) {
  for (std::string& start : starts) {
    if (!start.starts_with("file:")) continue;
    const auto files = FileAddress::pathsIn(start);
    if (!files.empty()) start = files.front().native();
  }
}

std::vector<std::string> languages() {
  std::vector<std::string> tags;
  for (const QString& tag : Language::all()) tags.push_back(tag.toStdString());
  return tags;
}

// One line, as of anything else that goes wrong.
int refuse(const std::string& said) {
  constexpr int kUsage = 2;
  std::fputs(("mixdeck: " + said + "\n").c_str(), stderr);
  return kUsage;
}

}  // namespace

ProgramOptions ProgramOptions::parse(int argc, const char* const* argv) {
  ProgramOptions options;
  std::vector<std::string> starts;
  CLI::App program("Browses, plays and exports the recordings of the TARN J4.", "mixdeck");
  program.set_version_flag("--version", std::string("mixdeck ") + kFullVersion);
  program
      .add_option("FOLDER|FILE", starts,
                  "Folder to show, or recording to show and play; of several the first, with "
                  "those others selected that are in its folder")
      ->type_name("")
      ->check(CLI::Validator(emptiness, ""));
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
    makePaths(starts);
    const std::string problem = problemKnownSoon(starts);
    if (!problem.empty()) options.status = refuse(problem);
    options.starts.assign(starts.begin(), starts.end());
  } catch (const CLI::ParseError& error) {
    options.status = error.get_exit_code() == 0
                         ? program.exit(error)  // help, or the version
                         : refuse(std::string(error.what()) + "; see mixdeck --help");
  }
  return options;
}
