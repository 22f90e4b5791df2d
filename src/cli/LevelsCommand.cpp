// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/LevelsCommand.h"

#include <fmt/format.h>

#include "cli/Interrupt.h"
#include "cli/NumberCheck.h"
#include "cli/Problem.h"
#include "export/Export.h"

namespace {}  // namespace

CLI::App* LevelsCommand::declare(CLI::App& program) {
  CLI::App* command = program.add_subcommand("levels", "Measure the highest values of a stretch");
  command->add_option("--from", _from, "Start in seconds")
      ->required()
      ->check(realBetween(0, kMostSeconds));
  command->add_option("--to", _to, "End in seconds")
      ->required()
      ->check(realBetween(0, kMostSeconds));
  command->add_option("--gain", _gain, "Gain in dB; positive is louder")
      ->check(realBetween(-kMostGain, kMostGain))
      ->capture_default_str();
  command->add_option("--angle", _angle, "Stereo width in degrees; 0 is mono")
      ->check(realBetween(0, kMostAngle))
      ->capture_default_str();
  command->add_option("FILE", _file, "Recording")->required();
  return command;
}

int LevelsCommand::run() {
  const Export job(_file);
  if (!job.IsFileValid()) {
    fmt::print(stderr, "{}\n", problemLine(_file, kFileNotSupported, job.failure()));
    return kFailed;
  }
  float left = 0;
  float right = 0;
  job.reader()->waitForMedium(&Interrupt::requested());
  job.reader()->getSampleLevelMeterFrom(_from, _to, left, right, -_gain, _angle);
  if (Interrupt::requested()) return kFailed;
  if (const std::string failure = job.reader()->image()->failure(); !failure.empty()) {
    fmt::print(stderr, "{}\n", problemLine(_file, kFailToOpen, failure));
    return kFailed;
  }
  fmt::print("{:.9g} {:.9g}\n", left, right);
  return kDone;
}
