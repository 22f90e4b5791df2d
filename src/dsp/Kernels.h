// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

/// The sample loops that carry the work, as vector code chosen at run time for the processor.
///
/// Every operation gives the same bits as its twin in `PlainKernels`, for any count, alignment and
/// value (NaN, infinities, denormals). Samples are 32-bit floats, full scale 1.0; "frames" are
/// interleaved pairs, element 0 Mid or Left, element 1 Side or Right, so their count is even.
/// No allocation, no state; safe on any thread.
class Kernels {
 public:
  /// Signed 24-bit little-endian integers to floats, times 2^-23.
  /// `bytes` holds three bytes a sample: bytes.size() == 3 * samples.size().
  static void unpack24(std::span<const std::byte> bytes, std::span<float> samples);

  /// Floats to signed 24-bit little-endian integers: inside (-1, 1) the product with 8388607
  /// truncated toward zero, above it 8388607, anything else (NaN too) -8388608.
  /// bytes.size() == 3 * samples.size().
  static void pack24(std::span<const float> samples, std::span<std::byte> bytes);

  /// Mid and Side to Left = M + S * sideGain and Right = M - S * sideGain, in place.
  static void decodeMidSide(std::span<float> frames, float sideGain);

  /// Divides element 0 of each frame by `left` and element 1 by `right`, in place. A divisor of 0
  /// leaves its channel as it is (a signalling NaN may become quiet). Returns what `peakMagnitude`
  /// makes of the quotients, from 0 on.
  static float divide(std::span<float> frames, float left, float right);

  /// `decodeMidSide` and then `divide` in one go.
  static float decodeAndDivide(std::span<float> frames, float sideGain, float left, float right);

  /// `unpack24`, `decodeAndDivide` and `pack24` in one go, of whole frames; `from` and `to` are as
  /// long, and do not overlap. Returns what `decodeAndDivide` does.
  static float recode24(std::span<const std::byte> from, float sideGain, float left, float right,
                        std::span<std::byte> to);

  /// The largest of `peak` and every |sample|; samples that are not a number do not count.
  /// `peak` is 0 or more.
  static float peakMagnitude(std::span<const float> samples, float peak);

  /// What `peakMagnitude` finds in what `unpack24` and `decodeMidSide` make of whole frames.
  static float decodedPeak24(std::span<const std::byte> frames, float sideGain, float peak);

  /// Raises `left` and `right` to the largest signed element of their channel; what is not a
  /// number does not count.
  static void raiseMaxima(std::span<const float> frames, float& left, float& right);
};
