// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/VerifyCommand.h"

#include <fmt/format.h>

#include <array>
#include <exception>
#include <string_view>
#include <utility>

#include "base/ErrorReason.h"
#include "cli/Interrupt.h"
#include "cli/NotEmpty.h"
#include "cli/Printable.h"
#include "cli/Problem.h"
#include "cli/SpeedText.h"

namespace {

using State = FolderCheck::State;

constexpr std::array<std::pair<State, std::string_view>, 6> kWords{
    {{State::Right, "right"},
     {State::Changed, "changed"},
     {State::Missing, "missing"},
     {State::Moved, "moved"},
     {State::New, "new"},
     {State::Unreadable, "unreadable"}}};

std::size_t placeOf(State state) {
  return static_cast<std::size_t>(state);
}

std::string lineOf(const FolderCheck::Finding& finding) {
  const std::string detail = finding.detail.empty()
                                 ? ""
                                 : (finding.state == State::Moved ? " to " : ": ") + finding.detail;
  return fmt::format("{}  {}{}\n", kWords[placeOf(finding.state)].second, printable(finding.path),
                     printable(detail));
}

// "58 right, 1 changed": those that there are.
std::string summaryOf(const std::array<std::size_t, kWords.size()>& counts) {
  std::string text = fmt::format("{} right", counts[0]);
  for (const auto& [state, word] : kWords) {
    const std::size_t count = counts[placeOf(state)];
    if (state != State::Right && count > 0) text += fmt::format(", {} {}", count, word);
  }
  return text + "\n";
}

// What to do about it.
std::string_view adviceOn(FolderCheck::Obstacle obstacle) {
  switch (obstacle) {
    case FolderCheck::Obstacle::Copying:
      return "verify again at its end";
    case FolderCheck::Obstacle::Manifest:
      return "mend that, and verify again";
    default:
      return "name a folder that takes were copied into";
  }
}

}  // namespace

CLI::App* VerifyCommand::declare(CLI::App& program) {
  CLI::App* command =
      program.add_subcommand("verify", "Hold the files of a folder to its manifest");
  command->add_flag("--quiet", _isQuiet, "Tell nothing but what is not right");
  auto* folder = command->add_option("FOLDER", _folder, "A folder that takes were copied into")
                     ->required()
                     ->type_name("");
  command->callback([this, folder] { refuseNothing(folder, _folder); });
  return command;
}

std::string VerifyCommand::problemOf(const FolderCheck& check) const {
  if (check.obstacle() == FolderCheck::Obstacle::Cancelled) return kCancelled;
  return problemLine(_folder, kFailToOpen,
                     fmt::format("{}; {}", check.whyNot(), adviceOn(check.obstacle())));
}

int VerifyCommand::run() {
  ProgressLine line(1);
  if (_isQuiet) line.hide();
  try {
    return verify(line) ? kDone : kFailed;
  } catch (const std::exception& error) {  // as where there is no memory left
    line.message(problemLine(_folder, kFailToOpen, reasonOf(error)));
    return kFailed;
  }
}

bool VerifyCommand::verify(ProgressLine& line) const {
  FolderCheck check(_folder, [] { return !Interrupt::requested(); });
  if (check.obstacle() != FolderCheck::Obstacle::None) {
    line.message(problemOf(check));
    return false;
  }
  for (const std::string& problem : check.problems()) {
    line.message(problemLine(_folder, "The manifest is not right:", problem));
  }
  for (const FolderFiles::Gap& gap : check.gaps()) {
    line.message(problemLine(gap.in(_folder), "Not listed.", gap.reason));
  }
  const SpeedText speed;
  const std::uint64_t total = check.bytes();
  std::uint64_t done = 0;
  std::array<std::size_t, kWords.size()> counts{};
  const auto tell = [&](const FolderCheck::Finding& finding) {
    ++counts.at(placeOf(finding.state));
    if (finding.state != State::Right) line.print(lineOf(finding));
  };
  const auto step = [&](std::uint64_t bytes) {
    done += bytes;
    line.show(done, total, [&] { return speed.text(done, total); });
    return !Interrupt::requested();
  };
  const bool isAllRight = check.run(tell, step);
  if (Interrupt::requested()) line.message(kCancelled);
  if (!_isQuiet) line.print(summaryOf(counts));
  return isAllRight && !Interrupt::requested();
}
