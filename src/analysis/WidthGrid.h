// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "dsp/SideGain.h"

/// The side gains at which an analysis looks: all that a width can have, and the few nodes at which
/// the extremes of each bin are kept.
///
/// Between two nodes an extreme is at most what the straight line between them says, for it is a
/// convex function of the side gain. How far the line may lie over it decides where the nodes are:
/// 0.2 apart up to 1, then at most 1.21 times one another. Constant; safe on any thread.
class WidthGrid {
 public:
  static constexpr std::size_t kWidths = SideGain::kMaxAngle + 1;
  /// Widths of the nodes, in degrees.
  static constexpr std::array kNodes{0, 50, 80, 98, 110, 120, 128, 135, 142, 150};

  /// Where a width lies: at the node, or `weight` of the way to the next one.
  struct Place {
    std::size_t node;
    float weight;
  };

  /// The side gain of each whole degree.
  static std::span<const float, kWidths> sideGains();
  /// The side gain of each node; the first one is 0.
  static std::span<const float, kNodes.size()> nodeGains();
  static Place locate(int angle);
};
