// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>

/// Filter memory and running sums of four stretches that are weighed side by side. Element 2i
/// belongs to the first channel of stretch i, element 2i + 1 to its second.
struct WeighingLanes {
  static constexpr std::size_t kStretches = 4;
  static constexpr std::size_t kWidth = 2 * kStretches;
  using Row = std::array<double, kWidth>;

  alignas(64) Row shelf1{};
  alignas(64) Row shelf2{};
  alignas(64) Row high1{};
  alignas(64) Row high2{};
  alignas(64) Row weighted{};  ///< sums of squares after the K-weighting
  alignas(64) Row plain{};     ///< sums of squares as they are
  alignas(64) Row product{};   ///< sums of first times second, the same in both elements
};
