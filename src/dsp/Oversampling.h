// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// The values between the samples, as true-peak meters look for them (ITU-R BS.1770, Annex 2): four
/// times the rate below 96 kHz, twice below 192 kHz, the samples themselves from there on.
///
/// The filter is a sinc under a Hann window, 6 samples to either side: exact at the samples, flat
/// within 0.11 dB up to 0.35 of the rate. Constant; safe on any thread.
class Oversampling {
 public:
  static constexpr std::size_t kTaps = 12;   ///< of each phase
  static constexpr std::size_t kBefore = 5;  ///< samples that a value needs before its own
  static constexpr std::size_t kAfter = 6;   ///< and after it
  using Phase = std::array<float, kTaps>;

  /// Values for each sample: 4, 2 or 1.
  static unsigned factor(std::uint32_t rate);

  /// The filters of the values between two samples, the sample itself left out: factor - 1 of them.
  /// The value at n + p / factor is the sum of taps[j] * x[n - kBefore + j].
  static std::span<const Phase> phases(unsigned factor);

  /// No value between samples is greater than this times the greatest of the samples it is made
  /// of.
  static float greatestGain();
};
