// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>

#include "dsp/KWeighting.h"
#include "dsp/PeakGate.h"
#include "dsp/WeighingLanes.h"

/// The plain C++ twins of `AnalysisKernels`: the same contracts, one frame at a time.
/// `raiseExtremes` and `raiseMagnitudes` take any sample here; what is not a number does not count.
class PlainAnalysisKernels {
 public:
  static bool areFinite(std::span<const float> samples);
  static void raiseExtremes(std::span<const float> frames, std::span<const float> gains,
                            std::span<float> extremes);
  static void raiseMagnitudes(std::span<const float> frames, std::span<const float> gains,
                              std::span<float> peaks);
  static bool areUnder(std::span<const float> frames, const PeakGate& gate);
  static void raisePeaks(std::span<const float> frames, const PeakGate& gate,
                         std::span<const float> gains, std::span<float> left,
                         std::span<float> right);
  static void interpolate(std::span<const float> frames, std::span<const float> taps,
                          std::span<float> out);
  static void weigh(const KWeighting& weighting,
                    const std::array<std::span<const float>, WeighingLanes::kStretches>& frames,
                    WeighingLanes& lanes);
};
