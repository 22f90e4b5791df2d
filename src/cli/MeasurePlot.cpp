// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/MeasurePlot.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

#include "dsp/SideGain.h"

namespace {

constexpr double kLeft = 70;  // of the panels
constexpr double kWide = 1000;
constexpr double kNameWidth = 150;

constexpr std::string_view kBackground = "#17181B";
constexpr std::string_view kPanel = "#202226";
constexpr std::string_view kLine = "#2D3036";
constexpr std::string_view kText = "#FFFFFF";
constexpr std::string_view kDim = "#9AA0A8";
constexpr std::string_view kWave = "#7FB4E0";
constexpr std::string_view kClip = "#E0554F";
constexpr std::string_view kPeakColour = "#E8B04B";

std::string inMarkup(std::string_view words) {
  std::string text;
  for (const char character : words) {
    switch (character) {
      case '&':
        text += "&amp;";
        break;
      case '<':
        text += "&lt;";
        break;
      case '>':
        text += "&gt;";
        break;
      default:
        text += static_cast<unsigned char>(character) < 0x20 ? '?' : character;
    }
  }
  return text;
}

double widthX(int width) {
  return kLeft + kWide * width / SideGain::kMaxAngle;
}

double columnX(std::size_t column) {
  return kLeft + kWide * static_cast<double>(column) / MeasurePlot::kColumns;
}

}  // namespace

double MeasurePlot::Panel::y(double value) const {
  const double held = std::clamp(value, least, most);
  return top + height * (most - held) / (most - least);
}

MeasurePlot::MeasurePlot(std::string_view title, const TakeAnalysis& analysis,
                         const Waveform& waveform, int width, double gain) {
  const std::string subtitle =
      fmt::format("{:.1f} s, {} Hz, {}, width {}, gain {:+g} dB", analysis.layout().seconds(),
                  analysis.layout().sampleRate(),
                  analysis.layout().isRawMidSide() ? "raw M/S" : "not M/S", width, gain);
  open(title, subtitle);
  const Panel left{70, 120, 1.0, -1.0};
  const Panel right{206, 120, 1.0, -1.0};
  for (const Panel& panel : {left, right}) addScale(panel, 1.0, "");
  addChannel(waveform, true, left);
  addChannel(waveform, false, right);
  addMarks(waveform, {66, 264, 1, -1});
  const Panel levels{370, 170, 6, -60};
  const Panel correlation{580, 90, 1, -1};
  addScale(levels, 12, "dB");
  addScale(correlation, 1, "");
  addWidths(width, levels.top, correlation.top + correlation.height);
  addCurve(
      analysis, gain, levels, [](const TakeFigures& f) { return f.integratedLufs; }, kWave,
      "loudness, LUFS");
  addCurve(
      analysis, gain, levels, [](const TakeFigures& f) { return f.truePeakDbtp; }, kPeakColour,
      "true peak, dBTP");
  addCurve(
      analysis, gain, correlation, [](const TakeFigures& f) { return f.correlation; }, kText,
      "correlation");
  _svg += "</svg>\n";
}

void MeasurePlot::open(std::string_view title, const std::string& subtitle) {
  _svg = fmt::format(
      "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1100\" height=\"720\" "
      "viewBox=\"0 0 1100 720\" font-family=\"Inter, sans-serif\" font-size=\"13\">\n"
      "<rect width=\"1100\" height=\"720\" fill=\"{}\"/>\n",
      kBackground);
  text(kLeft, 28, "start", kText, title);
  text(kLeft, 50, "start", kDim, subtitle);
}

void MeasurePlot::text(double x, double y, std::string_view anchor, std::string_view colour,
                       std::string_view words) {
  _svg += fmt::format("<text x=\"{:.1f}\" y=\"{:.1f}\" text-anchor=\"{}\" fill=\"{}\">{}</text>\n",
                      x, y, anchor, colour, inMarkup(words));
}

void MeasurePlot::addScale(const Panel& panel, double step, std::string_view unit) {
  _svg += fmt::format("<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" fill=\"{}\"/>\n", kLeft,
                      panel.top, kWide, panel.height, kPanel);
  const int lines = static_cast<int>((panel.most - panel.least) / step);
  for (int i = 0; i <= lines; ++i) {
    const double value = panel.least + step * i;
    _svg += fmt::format("<path d=\"M{0} {1:.1f}h{2}\" stroke=\"{3}\"/>\n", kLeft, panel.y(value),
                        kWide, kLine);
    text(kLeft - 8, panel.y(value) + 4, "end", kDim, fmt::format("{:g}", value));
  }
  text(kLeft - 8, panel.top - 8, "end", kDim, unit);
}

// Once along the greatest values and back along the least.
void MeasurePlot::addChannel(const Waveform& waveform, bool isLeft, const Panel& panel) {
  std::string path;
  const auto& columns = waveform.columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (!columns[i].isKnown) continue;
    const float most = isLeft ? columns[i].greatestLeft : columns[i].greatestRight;
    path += fmt::format("{}{:.1f} {:.1f}", path.empty() ? "M" : "L", columnX(i),
                        panel.y(static_cast<double>(most)));
  }
  for (std::size_t i = columns.size(); i-- > 0;) {
    if (!columns[i].isKnown) continue;
    const float least = isLeft ? columns[i].leastLeft : columns[i].leastRight;
    path += fmt::format("L{:.1f} {:.1f}", columnX(i), panel.y(static_cast<double>(least)) + 0.5);
  }
  if (!path.empty()) _svg += fmt::format("<path d=\"{}z\" fill=\"{}\"/>\n", path, kWave);
  text(kLeft + kWide + 8, panel.top + panel.height / 2 + 4, "start", kDim, isLeft ? "L" : "R");
}

void MeasurePlot::addMarks(const Waveform& waveform, const Panel& panel) {
  std::string path;
  for (std::size_t i = 0; i < waveform.columns.size(); ++i) {
    if (!waveform.columns[i].mayClip) continue;
    fmt::format_to(std::back_inserter(path), "M{:.1f} {:.1f}v{:.1f}", columnX(i), panel.top,
                   panel.height);
  }
  if (path.empty()) return;
  _svg += fmt::format("<path class=\"clipped\" d=\"{}\" stroke=\"{}\" stroke-opacity=\"0.7\"/>\n",
                      path, kClip);
  text(kLeft + kWide, 28, "end", kClip, "over full scale");
}

void MeasurePlot::addWidths(int width, double top, double bottom) {
  for (int angle = 0; angle <= SideGain::kMaxAngle; angle += 30) {
    text(widthX(angle), bottom + 20, "middle", kDim, fmt::format("{}", angle));
  }
  text(kLeft + kWide, bottom + 38, "end", kDim, "width");
  _svg += fmt::format("<path d=\"M{:.1f} {}V{}\" stroke=\"{}\" stroke-dasharray=\"3 3\"/>\n",
                      widthX(width), top, bottom, kDim);
}

void MeasurePlot::addCurve(const TakeAnalysis& analysis, double gain, const Panel& panel,
                           const Figure& figure, std::string_view colour, std::string_view name) {
  std::string path;
  bool isDrawing = false;
  for (int angle = SideGain::kMinAngle; angle <= SideGain::kMaxAngle; ++angle) {
    const auto value = figure(analysis.at(angle, gain));
    if (value) {
      path += fmt::format("{}{:.1f} {:.1f}", isDrawing ? "L" : "M", widthX(angle), panel.y(*value));
    }
    isDrawing = value.has_value();
  }
  if (!path.empty()) {
    _svg += fmt::format("<path d=\"{}\" fill=\"none\" stroke=\"{}\" stroke-width=\"2\"/>\n", path,
                        colour);
  }
  text(kLeft + kNameWidth * static_cast<double>(_names++), 356, "start", colour, name);
}
