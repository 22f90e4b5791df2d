// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/WaveformBins.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// For the rounding of the line and the gain, so that a column never reads low.
constexpr float kOutward = 1.0F + 1e-6F;

using Keys = std::span<const UpperKey::Key>;

UpperKey::Key greatest(Keys keys) {
  UpperKey::Key most = UpperKey::kNothing;
  for (const UpperKey::Key key : keys) most = std::max(most, key);
  return most;
}

// So far along the straight line; where one end is infinite, that.
float between(float low, float high, float weight) {
  const float value = low + (high - low) * weight;
  return std::isnan(value) ? std::max(low, high) : value;
}

}  // namespace

WaveformBins::WaveformBins(const BinKeys& keys, int width, double gain)
    : _keys(keys),
      _place(WidthGrid::locate(width)),
      _peakPlace(keys.isRawMidSide ? WidthGrid::locatePeak(width) : std::nullopt),
      _gain(static_cast<float>(std::pow(10.0, gain / 20.0))) {}

// Mid alone is both Left and Right at the first node.
std::size_t WaveformBins::plane(std::size_t node, Side side) const {
  if (!_keys.isRawMidSide) return side;
  return node == 0 ? side % 2 : 4 * node + side - 2;
}

UpperKey::Key WaveformBins::greatestKey(std::size_t plane, std::size_t first,
                                        std::size_t end) const {
  return greatest(_keys.keys.subspan(plane * _keys.bins + first, end - first));
}

float WaveformBins::upper(Side side, std::size_t first, std::size_t end) const {
  const std::size_t node = _keys.isRawMidSide ? _place.node : 0;
  const float low = UpperKey::value(greatestKey(plane(node, side), first, end));
  if (!_keys.isRawMidSide || _place.weight == 0.0F) return low;
  const float high = UpperKey::value(greatestKey(plane(node + 1, side), first, end));
  return between(low, high, _place.weight);
}

// Of the louder channel, over the blocks that hold these bins; no bound where none is kept.
float WaveformBins::upperOfPeak(std::size_t first, std::size_t end) const {
  if (!_peakPlace) return std::numeric_limits<float>::infinity();
  const std::size_t block = first / _keys.binsPerBlock;
  const std::size_t count = (end - 1) / _keys.binsPerBlock + 1 - block;
  const auto at = [&](std::size_t node) {
    return UpperKey::value(greatest(_keys.peakKeys.subspan(node * _keys.blocks + block, count)));
  };
  const auto [node, weight] = *_peakPlace;
  return weight == 0.0F ? at(node) : between(at(node), at(node + 1), weight);
}

Waveform::Column WaveformBins::column(std::size_t first, std::size_t end) const {
  const auto outward = [this](float value) {
    return value * _gain * (value > 0 ? kOutward : 2.0F - kOutward);
  };
  Waveform::Column column;
  column.isKnown = greatestKey(0, first, end) != UpperKey::kNothing;
  if (!column.isKnown) return column;
  const float most = upperOfPeak(first, end);
  const auto edge = [&](Side side) { return outward(std::min(upper(side, first, end), most)); };
  column.greatestLeft = edge(GreatestLeft);
  column.leastLeft = -edge(LeastLeft);
  column.greatestRight = edge(GreatestRight);
  column.leastRight = -edge(LeastRight);
  column.mayClip = std::max({column.greatestLeft, -column.leastLeft, column.greatestRight,
                             -column.leastRight}) > 1.0F;
  return column;
}
