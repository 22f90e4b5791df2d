// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/RepairCommand.h"

#include <fmt/format.h>

#include <exception>
#include <memory>
#include <system_error>

#include "base/ErrorReason.h"
#include "cli/Interrupt.h"
#include "cli/Printable.h"
#include "cli/Problem.h"
#include "cli/Streams.h"
#include "cli/TimeText.h"
#include "export/FileKey.h"
#include "wav/WaveImage.h"

namespace fs = std::filesystem;

CLI::App* RepairCommand::declare(CLI::App& program) {
  CLI::App* command = program.add_subcommand(
      "repair", "Salvage takes whose recording broke off, into new files beside them");
  command->add_flag("--force", _force, "Replace files that exist");
  command->add_flag("--dry-run", _isDryRun, "Tell what would be done, write nothing");
  command->add_flag("--quiet", _isQuiet, "Tell only what goes wrong");
  _list.add(*command, _files, "Recordings");
  command->callback([this] { _list.complete(_files); });
  return command;
}

int RepairCommand::run() {
  ProgressLine line(_files.size());
  if (_isQuiet) line.hide();
  ownTakes();
  bool isAllDone = true;
  for (std::size_t i = 0; i < _files.size() && !Interrupt::requested(); ++i) {
    try {
      isAllDone = repair(i, line) && isAllDone;
    } catch (const std::exception& error) {  // as where there is no memory left
      line.message(problemLine(_files[i], kFailToOpen, reasonOf(error)));
      isAllDone = false;
    }
    line.update(i, printable(_files[i].filename().native()), 1.0);
  }
  if (Interrupt::requested()) line.message(kCancelled);
  return isAllDone && !Interrupt::requested() ? kDone : kFailed;
}

// One whose place cannot be told is complained of when its turn comes.
void RepairCommand::ownTakes() {
  for (const fs::path& take : _files) {
    if (Interrupt::requested()) return;
    try {
      _owners.emplace(FileKey::of(take), take);
    } catch (const fs::filesystem_error&) {
    }
  }
}

bool RepairCommand::repair(std::size_t index, ProgressLine& line) {
  const fs::path& take = _files[index];
  std::string reason;
  const std::shared_ptr<const WaveImage> image = WaveImage::fromFile(take, reason);
  if (!image) {
    line.message(sourceProblem(take, kFailToOpen, reason));
    return false;
  }
  const TakeDiagnosis diagnosis = TakeDiagnosis::of(*image, &Interrupt::requested());
  if (!image->failure().empty()) {
    line.message(problemLine(take, kFailToOpen, image->failure()));
    return false;
  }
  if (diagnosis.isCancelled || !isBroken(take, diagnosis, line)) {
    return diagnosis.state == TakeDiagnosis::State::Sound && !diagnosis.isCancelled;
  }
  TakeRepair repair(image, diagnosis);
  if (!salvage(index, repair, line)) return false;
  if (!_isQuiet) line.print(reportOf(take, diagnosis));
  return true;
}

bool RepairCommand::isBroken(const fs::path& take, const TakeDiagnosis& diagnosis,
                             ProgressLine& line) const {
  if (diagnosis.state == TakeDiagnosis::State::Sound && !_isQuiet) {
    line.print(printable(take.native()) + ": sound, left alone\n");
  }
  if (diagnosis.state == TakeDiagnosis::State::Hopeless) {
    line.message(problemLine(take, "Nothing to salvage:", diagnosis.whyHopeless));
  }
  return diagnosis.state == TakeDiagnosis::State::Broken;
}

bool RepairCommand::salvage(std::size_t index, TakeRepair& repair, ProgressLine& line) {
  const fs::path target = TakeRepair::nameFor(_files[index]);
  const std::string name = printable(_files[index].filename().native());
  const auto existing = _force ? AtomicFile::Existing::Replace : AtomicFile::Existing::Refuse;
  std::error_code error;
  std::string refusal = repair.whyNot(target, existing);
  if (!_force && fs::exists(fs::symlink_status(target, error))) {
    refusal = "The file exists; --force replaces it";
  }
  const auto [owner, isFirst] = _owners.emplace(FileKey::of(target), _files[index]);
  if (!isFirst) {
    refusal = fmt::format("It belongs to {} in the same run; rename {}, and repair it by itself",
                          owner->second.native(), _files[index].native());
  }
  if (fs::equivalent(target, _files[index], error)) refusal = "The target is the source itself";
  repair.setCancelFlag(&Interrupt::requested());
  repair.setProgress([&](double done) { line.update(index, name, done); });
  if (refusal.empty() && (_isDryRun || repair.save(target, existing))) return true;
  if (refusal.empty() && repair.wasCancelled()) return false;
  line.message(targetProblem(target, refusal.empty() ? repair.failure() : refusal,
                             "copy the take to another folder first"));
  return false;
}

std::string RepairCommand::reportOf(const fs::path& take, const TakeDiagnosis& diagnosis) const {
  const std::uint64_t frames = diagnosis.keptBytes / diagnosis.frameBytes;
  const std::string length = diagnosis.sampleRate == 0
                                 ? fmt::format("{} frames", frames)
                                 : TimeText::of(static_cast<double>(frames) / diagnosis.sampleRate);
  std::string text = fmt::format("{} -> {}: {} of sound {}\n", printable(take.native()),
                                 printable(TakeRepair::nameFor(take).native()), length,
                                 _isDryRun ? "can be salvaged" : "salvaged");
  for (const std::string& finding : diagnosis.findings) text += fmt::format("  {}\n", finding);
  return text;
}
