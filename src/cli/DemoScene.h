// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

/// A made sound scene as raw Mid and Side: someone with a bell walks from left to right through
/// soft ambience, once over its whole length. The same numbers on every run.
class DemoScene {
 public:
  static constexpr std::uint32_t kRate = 48000;  ///< frames per second
  static constexpr std::uint64_t kFrames = std::uint64_t{20} * kRate;

  /// Fills interleaved Mid/Side frames, going on where the last call ended.
  void fill(std::span<float> frames);

 private:
  double noise();
  [[nodiscard]] double bell(double time) const;
  double step(double time);

  std::uint64_t _frame = 0;
  std::uint64_t _random = 0x9E3779B97F4A7C15;
  double _ambienceMid = 0;
  double _ambienceSide = 0;
};
