// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/WidthOption.h"

#include <fmt/format.h>

#include "cli/NumberCheck.h"

CLI::Option* WidthOption::add(CLI::App& command, std::optional<double>& angle) {
  return command
      .add_option("--angle", angle, "Stereo width in whole degrees; 0 is mono; 120 unless given")
      ->type_name("DEGREES")
      ->check(realBetween(0, kMostAngle));
}

double WidthOption::valueOf(const std::optional<double>& angle) {
  return angle.value_or(kDefaultAngle);
}

std::string WidthOption::note(const std::optional<double>& angle) {
  const int whole = WaveFileReader::wholeAngle(valueOf(angle));
  if (valueOf(angle) == whole) return "";
  return fmt::format("mixdeck-cli: --angle {} counts as {}", valueOf(angle), whole);
}

std::string WidthOption::warning(const std::optional<double>& angle, const WaveFileReader& reader) {
  return angle && !reader.isBoMSFormat() ? "--angle is not used, as it is not raw M/S" : "";
}
