// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

/// The plain C++ twins of `Kernels`: the same contracts, one sample at a time. They are the oracle
/// that the vector code is held to and finish what is left over after its whole vectors.
class PlainKernels {
 public:
  static void unpack24(std::span<const std::byte> bytes, std::span<float> samples);
  static void pack24(std::span<const float> samples, std::span<std::byte> bytes);
  static void decodeMidSide(std::span<float> frames, float sideGain);
  static float divide(std::span<float> frames, float left, float right);
  static float decodeAndDivide(std::span<float> frames, float sideGain, float left, float right);
  static float recode24(std::span<const std::byte> from, float sideGain, float left, float right,
                        std::span<std::byte> to);
  static float peakMagnitude(std::span<const float> samples, float peak);
  static float decodedPeak24(std::span<const std::byte> frames, float sideGain, float peak);
  static void raiseMaxima(std::span<const float> frames, float& left, float& right);

  /// One signed 24-bit little-endian integer times 2^-23.
  static float unpack24(const std::byte* bytes);
  /// The sample divided by the divisor, or as it is when the divisor is 0.
  static float divide(float sample, float divisor);
};
