// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/ExportCommand.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <system_error>
#include <thread>

#include "cli/FileDescription.h"
#include "cli/Interrupt.h"
#include "cli/NumberCheck.h"
#include "cli/Printable.h"
#include "cli/Problem.h"

namespace fs = std::filesystem;

namespace {

constexpr unsigned kMostJobs = 256;
constexpr double kLeastLoudness = -70;  // the gate
constexpr double kLeastTruePeak = -60;

}  // namespace

CLI::App* ExportCommand::declare(CLI::App& program) {
  CLI::App* command = program.add_subcommand("export", "Decode recordings into Left/Right files");
  command->add_option("--angle", _angle, "Stereo width in degrees; 0 is mono")
      ->check(realBetween(0, kMostAngle))
      ->capture_default_str();
  auto* gain = command->add_option("--gain", _gain, "Gain in dB; positive is louder")
                   ->check(realBetween(-kMostGain, kMostGain))
                   ->capture_default_str();
  auto* normalize =
      command->add_flag("--normalize", _normalize, "Scale the loudest sample to full scale")
          ->excludes(gain);
  auto* loudness = command->add_option("--loudness", _loudness, "Bring it to a loudness in LUFS")
                       ->check(realBetween(kLeastLoudness, 0))
                       ->excludes(gain)
                       ->excludes(normalize);
  command->add_option("--true-peak", _truePeak, "True peak in dBTP that --loudness may not pass")
      ->check(realBetween(kLeastTruePeak, 0))
      ->capture_default_str()
      ->needs(loudness);
  command->add_option("--format", _format, "24 (24-bit integer) or float32 (32-bit float)")
      ->check(CLI::IsMember({"24", "float32"}))
      ->capture_default_str();
  auto* output = command->add_option("--output", _output, "The file to write, for a single FILE");
  command->add_option("--output-dir", _outputFolder, "The folder to write into")->excludes(output);
  command->add_option("--jobs", _jobs, "Files at the same time; default: one a processor")
      ->check(CLI::Range(1U, kMostJobs));
  command->add_flag("--force", _force, "Replace files that exist");
  command->add_flag("--dry-run", _isDryRun, "Tell what would be done, write nothing");
  command->add_option("FILE", _files, "Recordings")->required();
  command->callback([this] {
    if (!_output.empty() && _files.size() > 1) {
      throw CLI::ValidationError("--output", "goes with a single FILE; see --output-dir");
    }
  });
  return command;
}

int ExportCommand::run() {
  const std::vector<ExportPlan::Item> items = ExportPlan::make(_files, _output, _outputFolder);
  ProgressLine line(items.size());
  std::atomic<std::size_t> next{0};
  std::atomic<bool> isAllDone{true};
  const auto work = [&] {
    for (std::size_t i = next++; i < items.size(); i = next++) {
      if (Interrupt::requested() || !exportItem(items[i], i, line)) isAllDone = false;
    }
  };
  std::vector<std::jthread> helpers;
  for (std::size_t i = 1; i < std::min<std::size_t>(parallelJobs(), items.size()); ++i) {
    helpers.emplace_back(work);
  }
  work();
  helpers.clear();
  if (Interrupt::requested()) line.message("mixdeck-cli: cancelled");
  return isAllDone ? kDone : kFailed;
}

unsigned ExportCommand::parallelJobs() const {
  if (_isDryRun) return 1;  // to tell in the order of the command line
  return _jobs > 0 ? _jobs : std::max(1U, std::thread::hardware_concurrency());
}

bool ExportCommand::exportItem(const ExportPlan::Item& item, std::size_t index,
                               ProgressLine& line) const {
  Export job(item.source);
  if (!isAllowed(item, job, line)) return false;
  const std::string warning = FileDescription::audioWarning(*job.reader());
  if (!warning.empty()) line.message(problemLine(item.source, "Warning:", warning));
  if (_isDryRun) return announce(item, job);
  job.setAngle(_angle);
  job.setGain(_gain);
  if (_loudness) job.setLoudness(LoudnessTarget{*_loudness, _truePeak});
  job.setExisting(_force ? AtomicFile::Existing::Replace : AtomicFile::Existing::Refuse);
  job.setCancelFlag(&Interrupt::requested());
  const std::string name = printable(item.source.filename().native());
  job.setProgress([&](double done) { line.update(index, name, done); });
  if (job.export2File(item.target, is24bit(), _normalize)) {
    if (job.loudnessGain()) tellGain(item, *job.loudnessGain());
    return true;
  }
  if (!job.wasCancelled()) line.message(problemLine(item.target, kFailToSave, job.failure()));
  return false;
}

bool ExportCommand::isAllowed(const ExportPlan::Item& item, const Export& job,
                              ProgressLine& line) const {
  std::error_code error;
  std::string text;
  if (!job.IsFileValid()) {
    text = problemLine(item.source, kFileNotSupported, job.failure());
  } else if (job.isSource(item.target)) {
    text = problemLine(item.target, kFailToOpen, "The target is the source itself");
  } else if (!item.refusal.empty()) {
    text = problemLine(item.target, kFailToSave, item.refusal);
  } else if (!_force && fs::exists(fs::symlink_status(item.target, error))) {
    text = problemLine(item.target, kFailToSave, "The file exists; --force replaces it");
  } else {
    return true;
  }
  line.message(text);
  return false;
}

void ExportCommand::tellGain(const ExportPlan::Item& item, const LoudnessGain& found) const {
  const std::string name = printable(item.source.native());
  const std::string lowered =
      found.loweredBy() > 0
          ? fmt::format(", {:.2f} LU less than asked for a true peak of {:g} dBTP",
                        found.loweredBy(), _truePeak)
          : "";
  fmt::print("{}: gain {:+.2f} dB, {:.2f} LUFS{}\n", name, found.gain().value_or(0),
             _loudness.value_or(0) - found.loweredBy(), lowered);
}

std::string ExportCommand::levelText() const {
  if (_loudness) return fmt::format("{:g} LUFS, at most {:g} dBTP", *_loudness, _truePeak);
  return _normalize ? "normalised" : fmt::format("gain {:+g} dB", _gain);
}

bool ExportCommand::announce(const ExportPlan::Item& item, const Export& job) const {
  const std::string width = job.reader()->isBoMSFormat()
                                ? fmt::format("width {}", WaveFileReader::wholeAngle(_angle))
                                : "not M/S, channels as they are";
  fmt::print("{} -> {}: {}, {}, {}, {} bytes\n", item.source.native(), item.target.native(),
             is24bit() ? "24-bit" : "32-bit float", width, levelText(), job.outputSize(is24bit()));
  return true;
}
