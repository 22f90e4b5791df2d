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

template <std::size_t Size>
std::array<float, Size> gainsOf(const std::array<int, Size>& angles) {
  std::array<float, Size> gains{};
  std::ranges::transform(angles, gains.begin(), [](int angle) { return SideGain::factor(angle); });
  return gains;
}

WidthGrid::Place place(int angle, std::span<const int> nodes) {
  const auto above = std::ranges::upper_bound(nodes, angle);
  const auto node = static_cast<std::size_t>(above - nodes.begin()) - 1;
  if (nodes[node] == angle) return {node, 0.0F};
  const float low = SideGain::factor(nodes[node]);
  return {node, (SideGain::factor(angle) - low) / (SideGain::factor(nodes[node + 1]) - low)};
}

int held(int angle) {
  return std::clamp(angle, SideGain::kMinAngle, SideGain::kMaxAngle);
}

}  // namespace

std::span<const float, WidthGrid::kWidths> WidthGrid::sideGains() {
  static const auto kGains = makeSideGains();
  return kGains;
}

std::span<const float, WidthGrid::kNodes.size()> WidthGrid::nodeGains() {
  static const auto kGains = gainsOf(kNodes);
  return kGains;
}

std::span<const float, WidthGrid::kPeakNodes.size()> WidthGrid::peakNodeGains() {
  static const auto kGains = gainsOf(kPeakNodes);
  return kGains;
}

WidthGrid::Place WidthGrid::locate(int angle) {
  return place(held(angle), kNodes);
}

std::optional<WidthGrid::Place> WidthGrid::locatePeak(int angle) {
  if (held(angle) > kPeakNodes.back()) return std::nullopt;
  return place(held(angle), kPeakNodes);
}
