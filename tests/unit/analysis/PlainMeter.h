// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "TestTake.h"
#include "analysis/TakeFigures.h"

/// The figures of Left and Right the plain way: every sample of what was decoded goes through
/// filter, oversampling and sums of its own. The oracle that a `TakeAnalysis` is held to.
class PlainMeter {
 public:
  /// Loudness, range, peaks, correlation and balance of decoded frames times a gain in dB.
  static TakeFigures measure(const Frames& leftRight, std::uint32_t rate, double gain);

  /// The greatest magnitude of samples and of what oversampling finds between them.
  static double truePeak(const Frames& leftRight, std::uint32_t rate);
};
