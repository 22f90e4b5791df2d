// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "analysis/TakeAnalysis.h"

/// The figures of one take at some widths, for people and for programs. A figure that does not
/// exist is a dash, null, or an empty field.
class MeasureReport {
 public:
  MeasureReport(const std::filesystem::path& path, const TakeAnalysis& analysis,
                const std::vector<int>& angles, double gain);

  /// Several lines, a row a width; tells where a 24-bit file would clip.
  [[nodiscard]] std::string table() const;
  /// Keys: path, seconds, sample_rate, raw_ms, widths.
  [[nodiscard]] nlohmann::ordered_json json() const;
  /// A line a width, as `csvHead` names the fields.
  [[nodiscard]] std::string csv() const;
  static std::string csvHead();

 private:
  struct Row {
    int angle;
    TakeFigures figures;
  };

  [[nodiscard]] nlohmann::ordered_json rowJson(const Row& row) const;
  [[nodiscard]] std::string tableRow(const Row& row) const;

  std::string _path;
  TakeLayout _layout;
  double _gain;
  std::vector<Row> _rows;
};
