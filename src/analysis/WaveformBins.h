// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>

#include "analysis/BinKeys.h"
#include "analysis/Waveform.h"
#include "analysis/WidthGrid.h"

/// Bins as seen at one width and gain. Lives no longer than the keys.
class WaveformBins {
 public:
  WaveformBins(const BinKeys& keys, int width, double gain);

  /// Extremes over bins [first, end), at least one.
  [[nodiscard]] Waveform::Column column(std::size_t first, std::size_t end) const;

 private:
  enum Side : std::size_t { GreatestLeft, LeastLeft, GreatestRight, LeastRight };

  [[nodiscard]] UpperKey::Key greatestKey(std::size_t plane, std::size_t first,
                                          std::size_t end) const;
  [[nodiscard]] float upper(Side side, std::size_t first, std::size_t end) const;
  [[nodiscard]] float upperOfPeak(std::size_t first, std::size_t end) const;
  [[nodiscard]] std::size_t plane(std::size_t node, Side side) const;

  BinKeys _keys;
  WidthGrid::Place _place;
  std::optional<WidthGrid::Place> _peakPlace;  ///< where it tells more than the extremes do
  float _gain;
};
