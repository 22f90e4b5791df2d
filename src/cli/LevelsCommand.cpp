// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/LevelsCommand.h"

#include <fmt/format.h>

#include <cmath>

#include "cli/FileDescription.h"
#include "cli/Interrupt.h"
#include "cli/NotEmpty.h"
#include "cli/NumberCheck.h"
#include "cli/Problem.h"
#include "cli/Streams.h"
#include "cli/StretchPeaks.h"
#include "cli/WidthOption.h"

namespace {

double dBFS(float magnitude) {
  return 20.0 * std::log10(static_cast<double>(magnitude));
}

void warn(const std::filesystem::path& file, const std::string& text) {
  if (!text.empty()) Streams::err(problemLine(file, kWarning, text) + "\n");
}

}  // namespace

CLI::App* LevelsCommand::declare(CLI::App& program) {
  CLI::App* command = program.add_subcommand("levels", "Measure the peaks of a stretch");
  _stretch.add(*command, StretchOption::Needs::BothEnds);
  command->add_option("--gain", _gain, "Gain in dB; positive is louder")
      ->type_name("DB")
      ->check(realBetween(-kMostGain, kMostGain))
      ->capture_default_str();
  WidthOption::add(*command, _angle);
  command->add_flag("--meter-rule", _hasMeterRule,
                    "The two values, full scale 1, that the recorder's rule gives a level meter");
  auto* file = command->add_option("FILE", _file, "Recording")->required()->type_name("");
  command->callback([this, file] {
    refuseNothing(file, _file);
    _stretch.check();
  });
  return command;
}

int LevelsCommand::run() {
  const Export job(_file);
  if (!job.IsFileValid()) {
    Streams::err(sourceProblem(job) + "\n");
    return kFailed;
  }
  const std::string reason = _stretch.whyNot(*job.reader());
  if (!reason.empty()) return fail("No such stretch.", reason);
  const std::string note = WidthOption::note(_angle);
  if (!note.empty()) Streams::err(note + "\n");
  warn(_file, FileDescription::audioAdvice(*job.reader()));
  warn(_file, WidthOption::warning(_angle, *job.reader()));
  const int status = _hasMeterRule ? tellByMeterRule(job) : tellPeaks(job);
  if (status != kDone && Interrupt::requested()) Streams::err("mixdeck-cli: cancelled\n");
  return status;
}

int LevelsCommand::tellPeaks(const Export& job) const {
  const std::uint64_t first = _stretch.firstFrame(*job.reader());
  const std::uint64_t end = _stretch.endFrame(*job.reader());
  if (first == end) return fail("No such stretch.", "No frame lies in it");
  const StretchPeaks peaks(*job.reader(), first, end, _gain, WidthOption::valueOf(_angle),
                           &Interrupt::requested());
  if (!peaks.failure().empty()) return fail(kFailToOpen, peaks.failure());
  if (Interrupt::requested()) return kFailed;
  Streams::out(fmt::format("left {:.2f} dBFS, right {:.2f} dBFS\n", dBFS(peaks.left()),
                           dBFS(peaks.right())));
  return kDone;
}

int LevelsCommand::tellByMeterRule(const Export& job) const {
  float left = 0;
  float right = 0;
  job.reader()->waitForMedium(&Interrupt::requested());
  job.reader()->getSampleLevelMeterFrom(_stretch.from(), _stretch.to().value_or(0), left, right,
                                        -_gain, WidthOption::valueOf(_angle));
  if (Interrupt::requested()) return kFailed;
  const std::string failure = job.reader()->image()->failure();
  if (!failure.empty()) return fail(kFailToOpen, failure);
  Streams::out(fmt::format("{:.9g} {:.9g}\n", left, right));
  return kDone;
}

int LevelsCommand::fail(std::string_view text, std::string_view reason) const {
  Streams::err(problemLine(_file, text, reason) + "\n");
  return kFailed;
}
