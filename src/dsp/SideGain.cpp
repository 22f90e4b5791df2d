// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/SideGain.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace {

constexpr int kLastCoarseAngle = 15;

double sideGainInDB(int angle) {
  if (angle <= kLastCoarseAngle) return -48.0 + (angle - 1) * 27.0 / 14.0;
  return (angle - SideGain::kUnityAngle) * 0.2;
}

using Table = std::array<float, SideGain::kMaxAngle + 1>;

Table makeTable() {
  Table table{};
  for (int angle = 1; angle <= SideGain::kMaxAngle; ++angle) {
    table[static_cast<std::size_t>(angle)] =
        static_cast<float>(std::pow(10.0, sideGainInDB(angle) / 20.0));
  }
  return table;
}

const Table kTable = makeTable();

}  // namespace

float SideGain::factor(std::int64_t angle) {
  const auto index = std::clamp<std::int64_t>(angle, kMinAngle, kMaxAngle);
  return kTable[static_cast<std::size_t>(index)];
}
