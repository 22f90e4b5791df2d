// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/MeasureReport.h"

#include <fmt/format.h>

#include <cmath>
#include <optional>

#include "cli/Printable.h"

using nlohmann::ordered_json;

namespace {

// More digits than any figure is exact to.
double rounded(double value) {
  constexpr double kDigits = 1e6;
  return std::round(value * kDigits) / kDigits;
}

ordered_json numberOrNull(const std::optional<double>& figure) {
  return figure ? ordered_json(rounded(*figure)) : ordered_json();
}

std::string cell(const std::optional<double>& figure, int width, int digits) {
  if (!figure) return fmt::format("{:>{}}", "-", width);
  return fmt::format("{:>{}.{}f}", *figure + 0.0, width, digits);
}

// In quotes where a comma or a quote is inside.
std::string csvText(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char character : text) {
    quoted += character;
    if (character == '"') quoted += '"';
  }
  return quoted + "\"";
}

}  // namespace

MeasureReport::MeasureReport(const std::filesystem::path& path, const TakeAnalysis& analysis,
                             const std::vector<int>& angles, double gain)
    : _path(path.native()), _layout(analysis.layout()), _gain(gain) {
  _rows.reserve(angles.size());
  for (const int angle : angles) _rows.push_back({angle, analysis.at(angle, gain)});
}

std::string MeasureReport::table() const {
  std::string text =
      fmt::format("{}\n  {:.3f} s, {} Hz, {}, gain {:+g} dB\n", printable(_path), _layout.seconds(),
                  _layout.sampleRate(), _layout.isRawMidSide() ? "raw M/S" : "not M/S", _gain);
  text +=
      "  width  integrated   range  momentary  short-term  true peak  sample peak  correlation"
      "  balance\n";
  text +=
      "               LUFS      LU   max LUFS    max LUFS       dBTP         dBFS"
      "                    dB\n";
  for (const Row& row : _rows) text += tableRow(row);
  return text;
}

std::string MeasureReport::tableRow(const Row& row) const {
  const TakeFigures& f = row.figures;
  return fmt::format(
      "  {:>5}  {}  {}  {}  {}  {}  {}  {}  {}{}\n", row.angle, cell(f.integratedLufs, 10, 2),
      cell(f.rangeLu, 6, 2), cell(f.momentaryMaxLufs, 9, 2), cell(f.shortTermMaxLufs, 10, 2),
      cell(f.truePeakDbtp, 9, 2), cell(f.samplePeakDbfs, 11, 2), cell(f.correlation, 11, 3),
      cell(f.balanceDb, 7, 2), f.isOverFullScale() ? "  over full scale" : "");
}

ordered_json MeasureReport::rowJson(const Row& row) const {
  const TakeFigures& f = row.figures;
  return {{"angle", row.angle},
          {"gain_db", _gain},
          {"integrated_lufs", numberOrNull(f.integratedLufs)},
          {"range_lu", numberOrNull(f.rangeLu)},
          {"momentary_max_lufs", numberOrNull(f.momentaryMaxLufs)},
          {"short_term_max_lufs", numberOrNull(f.shortTermMaxLufs)},
          {"true_peak_dbtp", numberOrNull(f.truePeakDbtp)},
          {"sample_peak_dbfs", numberOrNull(f.samplePeakDbfs)},
          {"correlation", numberOrNull(f.correlation)},
          {"balance_db", numberOrNull(f.balanceDb)}};
}

ordered_json MeasureReport::json() const {
  ordered_json widths = ordered_json::array();
  for (const Row& row : _rows) widths.push_back(rowJson(row));
  return {{"path", _path},
          {"seconds", _layout.seconds()},
          {"sample_rate", _layout.sampleRate()},
          {"raw_ms", _layout.isRawMidSide()},
          {"widths", widths}};
}

std::string MeasureReport::csvHead() {
  return "path,seconds,sample_rate,raw_ms,angle,gain_db,integrated_lufs,range_lu,"
         "momentary_max_lufs,short_term_max_lufs,true_peak_dbtp,sample_peak_dbfs,correlation,"
         "balance_db\n";
}

std::string MeasureReport::csv() const {
  std::string text;
  for (const Row& row : _rows) {
    text += fmt::format("{},{},{},{}", csvText(_path), _layout.seconds(), _layout.sampleRate(),
                        _layout.isRawMidSide());
    const ordered_json fields = rowJson(row);
    for (const auto& [key, value] : fields.items()) {
      text += "," + (value.is_null() ? std::string() : value.dump());
    }
    text += "\n";
  }
  return text;
}
