// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <limits>

/// Sums over the frames of a block, of its first channel, its second, and their product. Blocks
/// that have not been read are not a number, and so is what is made of them.
struct BlockSums {
  static constexpr double kNothing = std::numeric_limits<double>::quiet_NaN();
  static constexpr float kNoPower = std::numeric_limits<float>::quiet_NaN();

  /// Squares of both channels after the K-weighting.
  struct Weighted {
    float first = kNoPower;
    float second = kNoPower;

    friend bool operator==(const Weighted&, const Weighted&) = default;
  };

  std::array<Weighted, 2> weighted;  ///< of the first half of the block, and of the second
  double first = kNothing;           ///< squares as they are
  double second = kNothing;
  double product = kNothing;

  friend bool operator==(const BlockSums&, const BlockSums&) = default;
};

/// What the two channels are at a width: Left and Right themselves, or Mid and Side with the side
/// gain of that width.
struct ChannelMix {
  /// Left^2 + Right^2 in squares of both channels: M + k S and M - k S have no cross term together.
  struct Weights {
    double first;
    double second;
  };

  bool isRawMidSide = false;
  double sideGain = 1;

  [[nodiscard]] Weights power() const {
    return isRawMidSide ? Weights{2.0, 2.0 * sideGain * sideGain} : Weights{1.0, 1.0};
  }
};
