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

void raiseKey(UpperKey::Key& most, Keys keys) {
  for (const UpperKey::Key key : keys) most = std::max(most, key);
}

// So far along the straight line; where one end is infinite, that.
float between(float low, float high, float weight) {
  const float value = low + (high - low) * weight;
  return std::isnan(value) ? std::max(low, high) : value;
}

}  // namespace

WaveformBins::WaveformBins(bool isRawMidSide, int width, double gain)
    : _isRawMidSide(isRawMidSide),
      _place(isRawMidSide ? WidthGrid::locate(width) : WidthGrid::Place{0, 0.0F}),
      _peakPlace(isRawMidSide ? WidthGrid::locatePeak(width) : std::nullopt),
      _gain(static_cast<float>(std::pow(10.0, gain / 20.0))) {}

// Mid alone is both Left and Right at the first node.
std::size_t WaveformBins::plane(std::size_t node, std::size_t side) const {
  if (!_isRawMidSide) return side;
  return node == 0 ? side % 2 : 4 * node + side - 2;
}

bool WaveformBins::isBetween() const {
  return _place.weight != 0.0F;
}

void WaveformBins::raise(Greatest& greatest, const BinKeys& keys, std::size_t first,
                         std::size_t end) const {
  if (keys.keys.empty()) return;  // only the figures of the whole take are kept
  const auto part = [&](std::size_t plane) {
    return keys.keys.subspan(plane * keys.bins + first, end - first);
  };
  raiseKey(greatest.known, part(0));
  for (std::size_t side = 0; side < greatest.low.size(); ++side) {
    raiseKey(greatest.low[side], part(plane(_place.node, side)));
    if (isBetween()) raiseKey(greatest.high[side], part(plane(_place.node + 1, side)));
  }
  if (_peakPlace) raisePeaks(greatest, keys, first, end);
}

// Over the blocks that hold these bins.
void WaveformBins::raisePeaks(Greatest& greatest, const BinKeys& keys, std::size_t first,
                              std::size_t end) const {
  const std::size_t block = first / keys.binsPerBlock;
  const std::size_t count = (end - 1) / keys.binsPerBlock + 1 - block;
  const auto part = [&](std::size_t node) {
    return keys.peakKeys.subspan(node * keys.blocks + block, count);
  };
  raiseKey(greatest.peaks[0], part(_peakPlace->node));
  if (_peakPlace->weight != 0.0F) raiseKey(greatest.peaks[1], part(_peakPlace->node + 1));
}

float WaveformBins::upper(Side side, const Greatest& greatest) const {
  const float low = UpperKey::value(greatest.low[side]);
  return isBetween() ? between(low, UpperKey::value(greatest.high[side]), _place.weight) : low;
}

// Of the louder channel; no bound where none is kept.
float WaveformBins::upperOfPeak(const Greatest& greatest) const {
  if (!_peakPlace) return std::numeric_limits<float>::infinity();
  const float low = UpperKey::value(greatest.peaks[0]);
  if (_peakPlace->weight == 0.0F) return low;
  return between(low, UpperKey::value(greatest.peaks[1]), _peakPlace->weight);
}

Waveform::Column WaveformBins::column(const Greatest& greatest) const {
  const auto outward = [this](float value) {
    return value * _gain * (value > 0 ? kOutward : 2.0F - kOutward);
  };
  Waveform::Column column;
  column.isKnown = greatest.known != UpperKey::kNothing;
  if (!column.isKnown) return column;
  const float most = upperOfPeak(greatest);
  const auto edge = [&](Side side) { return outward(std::min(upper(side, greatest), most)); };
  column.greatestLeft = edge(GreatestLeft);
  column.leastLeft = -edge(LeastLeft);
  column.greatestRight = edge(GreatestRight);
  column.leastRight = -edge(LeastRight);
  column.mayClip = std::max({column.greatestLeft, -column.leastLeft, column.greatestRight,
                             -column.leastRight}) > 1.0F;
  return column;
}
