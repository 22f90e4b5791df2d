// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "analysis/BinKeys.h"
#include "analysis/UpperKey.h"
#include "analysis/Waveform.h"
#include "analysis/WidthGrid.h"

/// Bins as seen at one width and gain. A column is raised over the bins that it holds, which may be
/// in several places, and then made. Immutable; safe on any thread.
class WaveformBins {
 public:
  /// The greatest keys of the bins of a column, as far as this width needs them; of none at first.
  struct Greatest {
    using Edges = std::array<UpperKey::Key, 4>;

    static constexpr UpperKey::Key kNothing = UpperKey::kNothing;

    UpperKey::Key known = kNothing;
    Edges low{kNothing, kNothing, kNothing, kNothing};  ///< at the node before the width
    Edges high{kNothing, kNothing, kNothing, kNothing};
    std::array<UpperKey::Key, 2> peaks{kNothing, kNothing};  ///< at the nodes around it
  };

  WaveformBins(bool isRawMidSide, int width, double gain);

  /// Raises to bins [first, end) of these, at least one.
  void raise(Greatest& greatest, const BinKeys& keys, std::size_t first, std::size_t end) const;
  [[nodiscard]] Waveform::Column column(const Greatest& greatest) const;

 private:
  enum Side : std::size_t { GreatestLeft, LeastLeft, GreatestRight, LeastRight };

  void raisePeaks(Greatest& greatest, const BinKeys& keys, std::size_t first,
                  std::size_t end) const;
  [[nodiscard]] bool isBetween() const;
  [[nodiscard]] float upper(Side side, const Greatest& greatest) const;
  [[nodiscard]] float upperOfPeak(const Greatest& greatest) const;
  [[nodiscard]] std::size_t plane(std::size_t node, std::size_t side) const;

  bool _isRawMidSide;
  WidthGrid::Place _place;
  std::optional<WidthGrid::Place> _peakPlace;  ///< where it tells more than the extremes do
  float _gain;
};
