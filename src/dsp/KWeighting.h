// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// One second-order section, H(z) = (b0 + b1/z + b2/z^2) / (1 + a1/z + a2/z^2).
struct Biquad {
  double b0 = 1;
  double b1 = 0;
  double b2 = 0;
  double a1 = 0;
  double a2 = 0;
};

/// The frequency weighting of loudness (ITU-R BS.1770, Annex 1): a high shelf for the head, then a
/// high pass.
///
/// The standard publishes coefficients for 48 kHz only; for any other rate the same two analogue
/// filters are transformed anew (bilinear, with the corner frequency kept where it is), and the
/// high pass keeps the gain that it has at 48 kHz. Up to 1 kHz the weight is that at 48 kHz within
/// 0.06 dB from 16 kHz up, 0.21 dB at 8 kHz. Plain data; safe on any thread.
struct KWeighting {
  static constexpr std::uint32_t kLowestRate = 8000;
  static constexpr std::uint32_t kHighestRate = 768000;

  /// Whether loudness is defined at this rate (frames per second).
  static bool isDefined(std::uint32_t rate) { return rate >= kLowestRate && rate <= kHighestRate; }

  /// The sections at a rate for which it is defined.
  static KWeighting forRate(std::uint32_t rate);

  Biquad shelf;
  Biquad highPass;
};
