// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include "dsp/SideGain.h"

/// The side gains at which an analysis looks: all that a width can have, and the few nodes at which
/// the extremes of each bin and the peaks of each block are kept.
///
/// Between two nodes an extreme or a peak is at most what the straight line between them says, for
/// it is a convex function of the side gain. How far the line may lie over it decides where the
/// nodes are. Over the peak of both channels that is at most 0.43 dB where a node is at most 1.23
/// times the one before it, so the peaks have a node every 9 degrees from 15 on, up to where the
/// nodes of the extremes are as close. Constant; safe on any thread.
class WidthGrid {
 public:
  static constexpr std::size_t kWidths = SideGain::kMaxAngle + 1;
  /// Widths of the nodes of extremes, in degrees.
  static constexpr std::array kNodes{0, 66, 93, 111, 120, 128, 135, 142, 150};
  /// Widths of the nodes of peaks; the last one is a node of extremes too.
  static constexpr std::array kPeakNodes{0, 3, 9, 15, 24, 33, 42, 51, 60, 69, 78, 87, 96, 105, 111};

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
  /// The same of the nodes of peaks.
  static std::span<const float, kPeakNodes.size()> peakNodeGains();
  /// Among the nodes of peaks; none where those of extremes are as close.
  static std::optional<Place> locatePeak(int angle);
};
