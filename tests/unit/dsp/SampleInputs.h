// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <span>
#include <vector>

/// Floats for holding one loop to another: mostly audio, with everything mixed in that a float can
/// be. Repeatable: the same seed gives the same values.
class SampleInputs {
 public:
  explicit SampleInputs(std::uint32_t seed) : _random(seed) {}

  /// Signalling and quiet NaN with several payloads, infinities, denormals, both zeros, the
  /// extremes, and the neighbourhoods of -1, 1 and of 24-bit steps.
  static const std::vector<float>& awkward();

  /// Audio, awkward values, and any bits at all.
  float any();
  /// As `any`, without what is not a number.
  float anyNumber();
  /// Within full scale.
  float audio();

  std::vector<float> any(std::size_t count);
  std::vector<float> audio(std::size_t count);
  std::vector<std::byte> bytes(std::size_t count);
  /// A number from 0 to `last`.
  std::size_t upTo(std::size_t last);

 private:
  std::mt19937 _random;
};

/// The bit patterns, for comparing to the bit.
std::vector<std::uint32_t> bitsOf(std::span<const float> values);
