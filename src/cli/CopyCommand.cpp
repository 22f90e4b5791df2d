// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/CopyCommand.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <string_view>

#include "base/ErrorReason.h"
#include "base/Version.h"
#include "cli/Interrupt.h"
#include "cli/NotEmpty.h"
#include "cli/Printable.h"
#include "cli/Problem.h"
#include "cli/SpeedText.h"

namespace {

// How often each end came.
struct Counts {
  std::size_t copied = 0;
  std::size_t kept = 0;
  std::size_t notRight = 0;

  void add(CardCopy::Outcome outcome) {
    copied += outcome == CardCopy::Outcome::Copied ? 1 : 0;
    kept += outcome == CardCopy::Outcome::Kept ? 1 : 0;
    notRight +=
        outcome == CardCopy::Outcome::Differs || outcome == CardCopy::Outcome::Failed ? 1 : 0;
  }
  [[nodiscard]] std::string text(std::size_t takes) const {
    std::string said = fmt::format("{} of {} takes copied, {} there already", copied, takes, kept);
    if (notRight > 0) said += fmt::format(", {} not right", notRight);
    const std::size_t left = takes - copied - kept - notRight;
    if (left > 0) said += fmt::format(", {} not reached", left);
    return said;
  }
};

using Obstacle = CardCopy::Obstacle;

// Whether it is the card that stands in the way, not the folder.
bool isOfCard(Obstacle obstacle) {
  return obstacle == Obstacle::CardUnreadable || obstacle == Obstacle::CardEmpty ||
         obstacle == Obstacle::CardGone;
}

// What to do about it.
std::string_view advice(Obstacle obstacle) {
  switch (obstacle) {
    case Obstacle::CardUnreadable:
      return "CARD is the folder that the card is mounted on";
    case Obstacle::CardEmpty:
      return "takes are its .WAV files";
    case Obstacle::CardGone:
      return "plug it in and copy again: what is there stays";
    case Obstacle::Inside:
    case Obstacle::FolderUnwritable:
      return "choose another DEST";
    case Obstacle::FolderBusy:
      return "wait for its end, or choose another DEST";
    case Obstacle::FolderFull:
      return "make room there, or choose another DEST";
    case Obstacle::ManifestUnreadable:
      return "choose another DEST, or move its folder ascmhl away";
    case Obstacle::ManifestUnwritable:
      return "copy again once it can be: what is there stays";
    case Obstacle::None:
      break;
  }
  return "";
}

}  // namespace

CLI::App* CopyCommand::declare(CLI::App& program) {
  CLI::App* command =
      program.add_subcommand("copy", "Bring the takes of a card home, verified, with a manifest");
  command->add_flag("--quiet", _isQuiet, "Tell only what goes wrong");
  auto* card =
      command->add_option("CARD", _card, "The folder that the card is mounted on; is only read")
          ->required()
          ->type_name("");
  auto* destination =
      command->add_option("DEST", _destination, "The folder to copy into, made where it is missing")
          ->required()
          ->type_name("");
  command->callback([this, card, destination] {
    refuseNothing(card, _card);
    refuseNothing(destination, _destination);
  });
  return command;
}

int CopyCommand::run() {
  ProgressLine line(1);
  if (_isQuiet) line.hide();
  try {
    return copy(line) ? kDone : kFailed;
  } catch (const std::exception& error) {  // as where there is no memory left
    line.message(problemLine(_card, kFailToSave, reasonOf(error)));
    return kFailed;
  }
}

bool CopyCommand::copy(ProgressLine& line) const {
  CardCopy job(_card, _destination);
  job.setCancelFlag(&Interrupt::requested());
  const std::string reason = job.prepare();
  if (!reason.empty()) {
    line.message(job.wasCancelled() ? kCancelled : problemOf(job.obstacle(), reason));
    return false;
  }
  for (const FolderFiles::Gap& gap : job.gaps()) {
    line.message(problemLine(gap.in(_card), "Not listed.", gap.reason));
  }
  for (const std::string& problem : job.problems()) {
    line.message(problemLine(_destination, "The manifest is not right:", problem));
  }
  Counts counts;
  SpeedText speed;
  job.setVersion(kFullVersion);
  job.setResult([&](const CardCopy::Result& result) {
    counts.add(result.outcome);
    tell(result, line);
  });
  job.setProgress([&](const CardCopy::Progress& progress) {
    const std::uint64_t left = progress.total - std::min(progress.done, progress.total);
    line.show(progress.done, progress.total, [&] {
      return fmt::format("{} of {} takes  {}  {}", progress.takesDone, progress.takes,
                         speed.text(progress.worked, progress.worked + left),
                         printable(progress.take.native()));
    });
  });
  const bool isAllThere = job.run();
  if (!job.failure().empty()) line.message(problemOf(job.obstacle(), job.failure()));
  if (!job.manifestFailure().empty()) {
    line.message(problemOf(Obstacle::ManifestUnwritable, job.manifestFailure()));
  }
  if (job.wasCancelled()) line.message(kCancelled);
  if (!_isQuiet) line.print(counts.text(job.takes().size()) + "\n");
  return isAllThere;
}

std::string CopyCommand::problemOf(Obstacle obstacle, const std::string& reason) const {
  const bool isCards = isOfCard(obstacle);
  return problemLine(isCards ? _card : _destination, isCards ? kFailToOpen : kFailToSave,
                     fmt::format("{}; {}", reason, advice(obstacle)));
}

void CopyCommand::tell(const CardCopy::Result& result, ProgressLine& line) const {
  const std::string name = printable(result.take.native());
  switch (result.outcome) {
    case CardCopy::Outcome::Copied:
      if (!_isQuiet) line.print(name + ": copied and verified\n");
      break;
    case CardCopy::Outcome::Kept:
      if (!_isQuiet) line.print(name + ": there already\n");
      break;
    case CardCopy::Outcome::Differs:
      line.message(problemLine(_destination / result.take, "Differs.", result.reason));
      break;
    case CardCopy::Outcome::Failed:
      line.message(problemLine(result.take, "Not copied.", result.reason));
      break;
  }
}
