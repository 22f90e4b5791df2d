// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <limits>

/// Greatest and least values in turn, as `AnalysisKernels::raiseExtremes` takes them further.
struct Extremes {
  static constexpr float kFar = std::numeric_limits<float>::infinity();

  /// Makes them those of nothing: -kFar and kFar in turn.
  template <std::size_t Size>
  static constexpr void makeEmpty(std::array<float, Size>& extremes) {
    for (std::size_t i = 0; i < Size; ++i) extremes[i] = i % 2 == 0 ? -kFar : kFar;
  }
};
