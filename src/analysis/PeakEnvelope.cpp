// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/PeakEnvelope.h"

#include <algorithm>
#include <cmath>

#include "dsp/AnalysisKernels.h"
#include "dsp/Oversampling.h"

namespace {

// For what sums of some ten rounded products are off by, many times over.
constexpr float kRounding = 1e-5F;

void raiseAll(std::vector<float>& peaks, const std::vector<float>& others) {
  for (std::size_t i = 0; i < peaks.size(); ++i) peaks[i] = std::max(peaks[i], others[i]);
}

void raiseOne(float& peak, float sample) {
  if (std::fabs(sample) > peak) peak = std::fabs(sample);
}

template <std::size_t Size>
std::array<float, Size> divided(std::array<float, Size> line) {
  for (float& value : line) value /= Oversampling::greatestGain();
  return line;
}

float magnitude(std::span<const float> range) {
  return std::max(range[0], -range[1]);
}

}  // namespace

PeakEnvelope::PeakEnvelope(bool isRawMidSide)
    : _isRawMidSide(isRawMidSide),
      _left(isRawMidSide ? WidthGrid::kWidths : 1),
      _right(_left.size()) {}

PeakEnvelope::PeakEnvelope(const PeakEnvelope& like, std::span<const float> lefts,
                           std::span<const float> rights)
    : PeakEnvelope(like._isRawMidSide) {
  std::ranges::copy(lefts.first(_left.size()), _left.begin());
  std::ranges::copy(rights.first(_right.size()), _right.begin());
  if (_isRawMidSide) drawLines();
}

std::size_t PeakEnvelope::indexOf(int angle) const {
  if (!_isRawMidSide) return 0;
  return static_cast<std::size_t>(std::clamp(angle, SideGain::kMinAngle, SideGain::kMaxAngle));
}

bool PeakEnvelope::mayRaise(std::span<const float> extremes, Values values) const {
  if (!_isRawMidSide) {
    const float factor = values == Values::Samples ? 1.0F : Oversampling::greatestGain();
    const float left = magnitude(extremes.first(2)) * factor;
    return !(left <= _left[0]) || !(magnitude(extremes.subspan(2, 2)) * factor <= _right[0]);
  }
  const Lines& lines = linesOf(values);
  bool isUnder = true;
  bool isSilent = true;
  for (std::size_t i = 0; i < kNodeCount; ++i) {
    const float left = magnitude(extremes.subspan(4 * i, 2));
    const float right = i == 0 ? left : magnitude(extremes.subspan(4 * i + 2, 2));
    isUnder = isUnder && left <= lines.left[i] && right <= lines.right[i];
    isSilent = isSilent && left == 0.0F && right == 0.0F;
  }
  return !isUnder && !isSilent;
}

bool PeakEnvelope::framesMayRaise(std::span<const float> frames, Values values) const {
  if (!_isRawMidSide) return plainMayRaise(frames, values);
  static const std::array kCoarseGains{SideGain::factor(kCoarseNodes[0]),
                                       SideGain::factor(kCoarseNodes[1]),
                                       SideGain::factor(kCoarseNodes[2])};
  const Lines& lines = linesOf(values);
  const PeakGate coarse{kCoarseGains, lines.coarseLeft, lines.coarseRight};
  if (AnalysisKernels::areUnder(frames, coarse)) return false;
  return !AnalysisKernels::areUnder(frames, {WidthGrid::nodeGains(), lines.left, lines.right});
}

bool PeakEnvelope::plainMayRaise(std::span<const float> frames, Values values) const {
  std::array<float, kPlainExtremes> extremes{};
  AnalysisKernels::raiseExtremes(frames, {}, extremes);
  return mayRaise(extremes, values);
}

void PeakEnvelope::raise(std::span<const float> frames) {
  if (!_isRawMidSide) return raisePlain(frames);
  const PeakGate gate{WidthGrid::nodeGains(), linesOf(Values::Samples).left,
                      linesOf(Values::Samples).right};
  AnalysisKernels::raisePeaks(frames, gate, WidthGrid::sideGains(), _left, _right);
  drawLines();
}

void PeakEnvelope::raisePlain(std::span<const float> frames) {
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    raiseOne(_left[0], frames[i]);
    raiseOne(_right[0], frames[i + 1]);
  }
}

void PeakEnvelope::merge(const PeakEnvelope& other) {
  raiseAll(_left, other._left);
  raiseAll(_right, other._right);
  if (_isRawMidSide) drawLines();
}

void PeakEnvelope::drawLines() {
  auto& [samples, between] = _lines;
  drawLine(_left, WidthGrid::kNodes, samples.left);
  drawLine(_right, WidthGrid::kNodes, samples.right);
  drawLine(_left, kCoarseNodes, samples.coarseLeft);
  drawLine(_right, kCoarseNodes, samples.coarseRight);
  between = {divided(samples.left), divided(samples.right), divided(samples.coarseLeft),
             divided(samples.coarseRight)};
}

// Whatever stays under the line at two nodes lies, as a convex function, under the straight line
// between them, and so under the peaks: the line is the peaks' own chord, lowered by as much as the
// peaks sag beneath it.
void PeakEnvelope::drawLine(std::span<const float> peaks, std::span<const int> nodes,
                            std::span<float> line) {
  const auto gains = WidthGrid::sideGains();
  std::ranges::transform(nodes, line.begin(),
                         [&](int node) { return peaks[static_cast<std::size_t>(node)]; });
  float before = 0;
  for (std::size_t i = 0; i + 1 < nodes.size(); ++i) {
    const auto from = static_cast<std::size_t>(nodes[i]);
    const auto to = static_cast<std::size_t>(nodes[i + 1]);
    const float slope = (peaks[to] - peaks[from]) / (gains[to] - gains[from]);
    float sag = kRounding * std::max(peaks[from], peaks[to]);
    for (std::size_t k = from + 1; k < to; ++k) {
      sag = std::max(sag, peaks[from] + slope * (gains[k] - gains[from]) - peaks[k]);
    }
    line[i] = peaks[from] - std::max(before, sag);
    before = sag;
  }
  line.back() -= before;
}
