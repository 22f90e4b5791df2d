// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

#include "analysis/TakeFindings.h"
#include "analysis/Waveform.h"
#include "analysis/WidthGrid.h"

/// The bins of a take as seen at one width and gain. Lives no longer than the findings.
class WaveformBins {
 public:
  WaveformBins(const TakeFindings& findings, int width, double gain);

  /// Extremes over bins [first, end), at least one.
  [[nodiscard]] Waveform::Column column(std::size_t first, std::size_t end) const;

 private:
  enum Side : std::size_t { GreatestLeft, LeastLeft, GreatestRight, LeastRight };

  [[nodiscard]] UpperKey::Key greatestKey(std::size_t plane, std::size_t first,
                                          std::size_t end) const;
  [[nodiscard]] float upper(Side side, std::size_t first, std::size_t end) const;
  [[nodiscard]] std::size_t plane(std::size_t node, Side side) const;

  std::span<const UpperKey::Key> _keys;
  std::size_t _bins;
  bool _isRawMidSide;
  WidthGrid::Place _place;
  float _gain;
};
