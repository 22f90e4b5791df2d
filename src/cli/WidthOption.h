// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>

#include "wav/WaveFileReader.h"

/// `--angle`: the stereo width in degrees, of which whole ones count, and only for raw M/S.
class WidthOption {
 public:
  static CLI::Option* add(CLI::App& command, std::optional<double>& angle);

  /// The width that was given, or 120.
  static double valueOf(const std::optional<double>& angle);
  /// A line that says what a fractional width counts as; empty for a whole one.
  static std::string note(const std::optional<double>& angle);
  /// What to say where a width was given for a recording that has none; else empty.
  static std::string warning(const std::optional<double>& angle, const WaveFileReader& reader);
};
