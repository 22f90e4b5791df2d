// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/WidthGrid.h"

#include <algorithm>

namespace {

std::array<float, WidthGrid::kWidths> makeSideGains() {
  std::array<float, WidthGrid::kWidths> gains{};
  for (std::size_t i = 0; i < gains.size(); ++i) {
    gains[i] = SideGain::factor(static_cast<std::int64_t>(i));
  }
  return gains;
}

std::array<float, WidthGrid::kNodes.size()> makeNodeGains() {
  std::array<float, WidthGrid::kNodes.size()> gains{};
  std::ranges::transform(WidthGrid::kNodes, gains.begin(),
                         [](int angle) { return SideGain::factor(angle); });
  return gains;
}

}  // namespace

std::span<const float, WidthGrid::kWidths> WidthGrid::sideGains() {
  static const auto kGains = makeSideGains();
  return kGains;
}

std::span<const float, WidthGrid::kNodes.size()> WidthGrid::nodeGains() {
  static const auto kGains = makeNodeGains();
  return kGains;
}

WidthGrid::Place WidthGrid::locate(int angle) {
  const int held = std::clamp(angle, SideGain::kMinAngle, SideGain::kMaxAngle);
  const auto above = std::ranges::upper_bound(kNodes, held);
  const auto node = static_cast<std::size_t>(above - kNodes.begin()) - 1;
  if (kNodes[node] == held) return {node, 0.0F};
  const float low = nodeGains()[node];
  return {node, (SideGain::factor(held) - low) / (nodeGains()[node + 1] - low)};
}
