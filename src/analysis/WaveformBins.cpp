// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/WaveformBins.h"

#include <algorithm>
#include <cmath>

namespace {

// For the rounding of the line and the gain, so that a column never reads low.
constexpr float kOutward = 1.0F + 1e-6F;

}  // namespace

WaveformBins::WaveformBins(const TakeFindings& findings, int width, double gain)
    : _keys(findings.keys),
      _bins(findings.layout.bins()),
      _isRawMidSide(findings.layout.isRawMidSide()),
      _place(WidthGrid::locate(width)),
      _gain(static_cast<float>(std::pow(10.0, gain / 20.0))) {}

// Mid alone is both Left and Right at the first node.
std::size_t WaveformBins::plane(std::size_t node, Side side) const {
  return node == 0 && _isRawMidSide ? side % 2 : 4 * node + side;
}

UpperKey::Key WaveformBins::greatestKey(std::size_t plane, std::size_t first,
                                        std::size_t end) const {
  UpperKey::Key most = UpperKey::kNothing;
  for (const UpperKey::Key key : _keys.subspan(plane * _bins + first, end - first)) {
    most = std::max(most, key);
  }
  return most;
}

float WaveformBins::upper(Side side, std::size_t first, std::size_t end) const {
  const std::size_t node = _isRawMidSide ? _place.node : 0;
  const float low = UpperKey::value(greatestKey(plane(node, side), first, end));
  if (!_isRawMidSide || _place.weight == 0.0F) return low;
  const float high = UpperKey::value(greatestKey(plane(node + 1, side), first, end));
  const float between = low + (high - low) * _place.weight;
  // Where that is not a number, one of both is infinite.
  return std::isnan(between) ? std::max(low, high) : between;
}

Waveform::Column WaveformBins::column(std::size_t first, std::size_t end) const {
  const auto outward = [this](float value) {
    return value * _gain * (value > 0 ? kOutward : 2.0F - kOutward);
  };
  Waveform::Column column;
  column.isKnown = greatestKey(0, first, end) != UpperKey::kNothing;
  if (!column.isKnown) return column;
  column.greatestLeft = outward(upper(GreatestLeft, first, end));
  column.leastLeft = -outward(upper(LeastLeft, first, end));
  column.greatestRight = outward(upper(GreatestRight, first, end));
  column.leastRight = -outward(upper(LeastRight, first, end));
  column.mayClip = std::max({column.greatestLeft, -column.leastLeft, column.greatestRight,
                             -column.leastRight}) > 1.0F;
  return column;
}
