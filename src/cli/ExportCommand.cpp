// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ExportCommand.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>
#include <system_error>
#include <thread>

#include "base/ErrorReason.h"
#include "cli/FileDescription.h"
#include "cli/Helpers.h"
#include "cli/Interrupt.h"
#include "cli/NotEmpty.h"
#include "cli/NumberCheck.h"
#include "cli/OutputFolder.h"
#include "cli/Printable.h"
#include "cli/Problem.h"
#include "cli/ProblemAdvice.h"
#include "cli/Streams.h"
#include "cli/WidthOption.h"

namespace fs = std::filesystem;

namespace {

constexpr unsigned kMostJobs = 256;
constexpr double kLeastLoudness = -70;  // the gate
constexpr double kLeastTruePeak = -60;

std::string leftOutText(const KeptMetadata::LeftOut& chunk) {
  return fmt::format("Its \"{}\" chunk of {} bytes is not taken over, as it passes {} MiB",
                     chunk.identifier, chunk.bytes, KeptMetadata::kMostBytes >> 20);
}

}  // namespace

CLI::App* ExportCommand::declare(CLI::App& program) {
  CLI::App* command = program.add_subcommand("export", "Decode recordings into Left/Right files");
  auto* const angle = WidthOption::add(*command, _angle);
  declareLevel(*command);
  _remembered.add(*command)->excludes(angle)->excludes("--gain");
  command->add_option("--format", _format, "24 (24-bit integer) or float32 (32-bit float)")
      ->type_name("FORMAT")
      ->check(CLI::IsMember({"24", "float32"}))
      ->capture_default_str();
  command->add_flag("--keep-metadata", _keepsMetadata, "Take over recording time and markers");
  command->add_option("--rf64", _rf64, "What passes 4 GiB: auto (an RF64 file) or never (none)")
      ->type_name("WHEN")
      ->check(CLI::IsMember({"auto", "never"}))
      ->capture_default_str();
  declareTarget(*command);
  command->add_option("--jobs", _jobs, "Files at the same time; default: one a processor")
      ->type_name("N")
      ->check(wholeBetween(1, kMostJobs));
  command->add_flag("--dry-run", _isDryRun, "Tell what would be done, write nothing");
  command->add_flag("--quiet", _isQuiet, "Tell only what goes wrong");
  _list.add(*command, _files, "Recordings");
  return command;
}

void ExportCommand::declareLevel(CLI::App& command) {
  auto* gain = command.add_option("--gain", _gain, "Gain in dB; positive is louder")
                   ->type_name("DB")
                   ->check(realBetween(-kMostGain, kMostGain))
                   ->capture_default_str();
  auto* normalize =
      command.add_flag("--normalize", _normalize, "Scale the loudest sample to full scale")
          ->excludes(gain);
  auto* loudness = command.add_option("--loudness", _loudness, "Bring it to a loudness in LUFS")
                       ->type_name("LUFS")
                       ->check(realBetween(kLeastLoudness, 0))
                       ->excludes(gain)
                       ->excludes(normalize);
  command.add_option("--true-peak", _truePeak, "True peak in dBTP that --loudness may not pass")
      ->type_name("DBTP")
      ->check(realBetween(kLeastTruePeak, 0))
      ->capture_default_str()
      ->needs(loudness);
}

void ExportCommand::declareTarget(CLI::App& command) {
  auto* output = command.add_option("--output", _output, "The file to write, for a single FILE")
                     ->type_name("FILE");
  auto* folder = command
                     .add_option("--output-dir", _outputFolder,
                                 "The folder to write into, made where it is missing")
                     ->type_name("FOLDER")
                     ->excludes(output);
  command.add_flag("--force", _force, "Replace files that exist");
  command.callback([this, output, folder] {
    refuseNothing(output, _output);
    refuseNothing(folder, _outputFolder);
    _list.complete(_files);
    if (!_output.empty() && _files.size() > 1) {
      throw CLI::ValidationError("--output", "goes with a single FILE; --output-dir takes several");
    }
  });
}

int ExportCommand::run() {
  if (!prepareFolder()) return kFailed;
  const std::vector<ExportPlan::Item> items = ExportPlan::make(_files, _output, _outputFolder);
  ProgressLine line(items.size());
  if (_isQuiet) line.hide();
  const std::string note = WidthOption::note(_angle);
  if (!note.empty()) line.message(note);
  std::atomic<std::size_t> next{0};
  std::atomic<bool> isAllDone{true};
  std::atomic<bool> isCancelled{false};
  Helpers::run(std::min<std::size_t>(parallelJobs(), items.size()), [&] {
    for (std::size_t i = next++; i < items.size(); i = next++) {
      const End end = guardedExport(items[i], i, line);
      if (end != End::Done) isAllDone = false;
      if (end == End::Cancelled) isCancelled = true;
    }
  });
  if (isCancelled) line.message(kCancelled);
  return isAllDone ? kDone : kFailed;
}

bool ExportCommand::prepareFolder() const {
  if (_outputFolder.empty()) return true;
  const std::string reason =
      _isDryRun ? OutputFolder::whyNot(_outputFolder) : OutputFolder::make(_outputFolder);
  if (!reason.empty()) Streams::err(targetProblem(_outputFolder, reason, elsewhere()) + "\n");
  return reason.empty();
}

unsigned ExportCommand::parallelJobs() const {
  if (_isDryRun) return 1;  // to tell in the order of the command line
  return _jobs > 0 ? _jobs : std::max(1U, std::thread::hardware_concurrency());
}

ExportCommand::End ExportCommand::guardedExport(const ExportPlan::Item& item, std::size_t index,
                                                ProgressLine& line) const {
  if (Interrupt::requested()) return End::Cancelled;
  try {
    return exportItem(item, index, line);
  } catch (const std::exception& error) {  // as where there is no memory left
    line.message(problemLine(item.target, kFailToSave, reasonOf(error)));
    return End::Failed;
  }
}

ExportCommand::End ExportCommand::exportItem(const ExportPlan::Item& item, std::size_t index,
                                             ProgressLine& line) const {
  Export job(item.source);
  job.setExisting(_force ? AtomicFile::Existing::Replace : AtomicFile::Existing::Refuse);
  job.setKeepMetadata(_keepsMetadata);
  job.setLongOutput(_rf64 == "auto" ? Export::LongOutput::Rf64 : Export::LongOutput::Refuse);
  const std::string refused = refusal(item, job);
  if (!refused.empty()) {
    line.message(refused);
    return End::Failed;
  }
  warn(job, line);
  const TakeLevel level = levelOf(job, line);
  prepare(job, level);
  announce(ExportReport(item.target, settings(level)), job, line);
  const std::string name = printable(item.source.filename().native());
  job.setProgress([&](double done) { line.update(index, name, done); });
  if (_isDryRun || job.export2File(item.target, is24bit(), _normalize)) {
    tell(item, job, level, line);
    return End::Done;
  }
  if (job.wasCancelled()) return End::Cancelled;
  line.message(targetProblem(item.target, job.failure(), elsewhere()));
  return End::Failed;
}

std::string ExportCommand::refusal(const ExportPlan::Item& item, const Export& job) const {
  std::error_code error;
  if (!job.IsFileValid()) return sourceProblem(job);
  if (job.isSource(item.target)) {
    return problemLine(item.target, kFailToOpen,
                       ProblemAdvice::onSaving("The target is the source itself", elsewhere()));
  }
  if (!item.refusal.empty()) {
    return problemLine(
        item.target, kFailToSave,
        fmt::format("{}; export {} by itself, with --output", item.refusal, item.source.native()));
  }
  if (!_force && fs::exists(fs::symlink_status(item.target, error))) {
    return problemLine(item.target, kFailToSave, "The file exists; --force replaces it");
  }
  // A folder that would be made is as good as the one that it would be made in, where another name
  // may be taken.
  const bool isMade = _isDryRun && !_outputFolder.empty() && !fs::exists(_outputFolder, error);
  fs::path target =
      isMade ? OutputFolder::standing(_outputFolder) / item.target.filename() : item.target;
  while (isMade && fs::exists(fs::symlink_status(target, error))) target += "_";
  std::string reason = job.whyNot(target, is24bit());
  if (reason.empty()) return "";
  if (!is24bit() && job.whyNot(target, true).empty()) reason += "; --format 24 fits";
  return targetProblem(item.target, reason, elsewhere());
}

std::string_view ExportCommand::elsewhere() const {
  return _output.empty() ? "name another folder with --output-dir"
                         : "name another place with --output";
}

void ExportCommand::warn(const Export& job, ProgressLine& line) const {
  const std::string audio = FileDescription::audioAdvice(*job.reader());
  if (!audio.empty()) line.message(problemLine(job.getFilePath(), kWarning, audio));
  const std::string width = WidthOption::warning(_angle, *job.reader());
  if (!width.empty()) line.message(problemLine(job.getFilePath(), kWarning, width));
  for (const KeptMetadata::LeftOut& chunk : job.leftOut()) {
    line.message(problemLine(job.getFilePath(), kWarning, leftOutText(chunk)));
  }
}

TakeLevel ExportCommand::levelOf(const Export& job, ProgressLine& line) const {
  TakeLevel level{WidthOption::valueOf(_angle), _gain};
  const std::string warning = _remembered.apply(*job.reader(), level);
  if (!warning.empty()) line.message(problemLine(job.getFilePath(), kWarning, warning));
  return level;
}

void ExportCommand::prepare(Export& job, const TakeLevel& level) const {
  job.setAngle(level.width);
  job.setGain(level.gain);
  if (_loudness) job.setLoudness(LoudnessTarget{*_loudness, _truePeak});
  job.setCancelFlag(&Interrupt::requested());
}

// An export of that length takes a while, and not everything reads RF64.
void ExportCommand::announce(const ExportReport& report, const Export& job,
                             ProgressLine& line) const {
  const std::string text = report.longLine(job);
  if (!text.empty() && !_isQuiet && !_isDryRun) line.message(text);
}

void ExportCommand::tell(const ExportPlan::Item& item, const Export& job, const TakeLevel& level,
                         ProgressLine& line) const {
  const ExportReport report(item.target, settings(level));
  if (!_isQuiet) line.print(report.line(job));
  const std::string clipping = report.clippingLine(job);
  if (!clipping.empty()) line.message(clipping);
}

ExportReport::Settings ExportCommand::settings(const TakeLevel& level) const {
  ExportReport::Settings settings{level.width, level.gain, is24bit(), _normalize, {}};
  if (_loudness) settings.loudness = LoudnessTarget{*_loudness, _truePeak};
  return settings;
}
