// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "export/Export.h"

/// What is said of an export, before or after it. Immutable.
class ExportReport {
 public:
  struct Settings {
    double angle = 0;
    double gain = 0;
    bool is24bit = true;
    bool isNormalized = false;
    std::optional<LoudnessTarget> loudness;
  };

  ExportReport(std::filesystem::path target, const Settings& settings)
      : _target(std::move(target)), _settings(settings) {}

  /// One line: source, target, format, width, level and size. Of an export that is done, the gain
  /// that it came to.
  [[nodiscard]] std::string line(const Export& job) const;
  /// That it will be written as RF64, as one line for standard error, before it is; empty where it
  /// will not.
  [[nodiscard]] std::string longLine(const Export& job) const;
  /// What 24 bits cut off and where, as one line for standard error; empty where nothing is.
  [[nodiscard]] std::string clippingLine(const Export& job) const;

 private:
  [[nodiscard]] std::string levelText(const Export& job) const;
  [[nodiscard]] std::string loudnessText(const LoudnessGain& found) const;

  std::filesystem::path _target;
  Settings _settings;
};
