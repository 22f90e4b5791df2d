// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "analysis/TakeAnalysis.h"

/// One picture of a take, as SVG: the waveform at a width and gain with its clipped spots marked,
/// and below it loudness, true peak and correlation over all widths. Needs no display.
class MeasurePlot {
 public:
  static constexpr std::size_t kColumns = 1000;

  /// `waveform` has `kColumns` columns at this width and gain.
  MeasurePlot(std::string_view title, const TakeAnalysis& analysis, const Waveform& waveform,
              int width, double gain);

  [[nodiscard]] const std::string& svg() const { return _svg; }

 private:
  struct Panel {
    double top;
    double height;
    double most;   ///< the value at the top
    double least;  ///< and at the bottom

    [[nodiscard]] double y(double value) const;
  };
  using Figure = std::function<std::optional<double>(const TakeFigures&)>;

  void open(std::string_view title, const std::string& subtitle);
  void addChannel(const Waveform& waveform, bool isLeft, const Panel& panel);
  void addMarks(const Waveform& waveform, const Panel& panel);
  void addScale(const Panel& panel, double step, std::string_view unit);
  void addCurve(const TakeAnalysis& analysis, double gain, const Panel& panel, const Figure& figure,
                std::string_view colour, std::string_view name);
  void addWidths(int width, double top, double bottom);
  void text(double x, double y, std::string_view anchor, std::string_view colour,
            std::string_view words);

  std::string _svg;
  std::size_t _names = 0;  ///< of curves, one beside the other
};
