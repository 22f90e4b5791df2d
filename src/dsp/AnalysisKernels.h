// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>

#include "dsp/KWeighting.h"
#include "dsp/PeakGate.h"
#include "dsp/WeighingLanes.h"

/// The sample loops of the analysis of a take, as vector code chosen at run time for the processor.
///
/// Every operation gives the same values as its twin in `PlainAnalysisKernels`, for any count and
/// alignment: the additions of a sum are in one fixed order, and a multiply and an add are never
/// fused. Frames are interleaved pairs of floats. No allocation, no state; safe on any thread.
class AnalysisKernels {
 public:
  /// True where no sample is infinite or not a number.
  static bool areFinite(std::span<const float> samples);

  /// Raises maxima and lowers minima: extremes[0..3] are maximum and minimum of the first and of
  /// the second channel as they are; 4 + 4 * i and on are maximum and minimum of M + g S, maximum
  /// and minimum of M - g S, with g = gains[i]. Samples are finite; of two zeros any may be taken.
  /// extremes.size() == 4 + 4 * gains.size().
  static void raiseExtremes(std::span<const float> frames, std::span<const float> gains,
                            std::span<float> extremes);

  /// Raises peaks[i] to |M| + g |S|, with g = gains[i] of 0 or more: what the greater of Left and
  /// Right comes to as the decode rounds it. Samples are finite. peaks.size() == gains.size().
  static void raiseMagnitudes(std::span<const float> frames, std::span<const float> gains,
                              std::span<float> peaks);

  /// True where at every gain of the gate no frame exceeds it; what is not a number exceeds it.
  static bool areUnder(std::span<const float> frames, const PeakGate& gate);

  /// Raises left[i] and right[i] to |M + g S| and |M - g S| with g = gains[i], each rounded as the
  /// decode rounds it, of every frame that exceeds the gate at one of its gains or more; where a
  /// frame does not, it is left out. What is not a number does not count, but passes a gate.
  static void raisePeaks(std::span<const float> frames, const PeakGate& gate,
                         std::span<const float> gains, std::span<float> left,
                         std::span<float> right);

  /// One phase of a filter over both channels: out frame n is the sum of taps[j] * frame n + j, in
  /// the order of j. frames.size() == out.size() + 2 * (taps.size() - 1).
  static void interpolate(std::span<const float> frames, std::span<const float> taps,
                          std::span<float> out);

  /// Feeds four stretches of the same length through the K-weighting, and adds up. Samples are
  /// finite.
  static void weigh(const KWeighting& weighting,
                    const std::array<std::span<const float>, WeighingLanes::kStretches>& frames,
                    WeighingLanes& lanes);
};
