// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/PlainAnalysisKernels.h"

#include <algorithm>
#include <cmath>

namespace {

void widen(std::span<float> range, float value) {
  if (value > range[0]) range[0] = value;
  if (value < range[1]) range[1] = value;
}

bool passes(float mid, float side, const PeakGate& gate) {
  for (std::size_t i = 0; i < gate.gains.size(); ++i) {
    const float scaled = side * gate.gains[i];
    const bool isUnder =
        std::fabs(mid + scaled) <= gate.left[i] && std::fabs(mid - scaled) <= gate.right[i];
    if (!isUnder) return true;
  }
  return false;
}

void raise(float& peak, float value) {
  if (std::fabs(value) > peak) peak = std::fabs(value);
}

// The section in its transposed form: x goes in, what comes out is returned.
double step(const Biquad& section, double x, double& first, double& second) {
  const double y = section.b0 * x + first;
  first = (section.b1 * x + second) - section.a1 * y;
  second = section.b2 * x - section.a2 * y;
  return y;
}

void weighFrame(const KWeighting& weighting, const float* frame, std::size_t lane,
                WeighingLanes& lanes) {
  for (std::size_t channel = 0; channel < 2; ++channel) {
    const std::size_t at = 2 * lane + channel;
    const auto x = static_cast<double>(frame[channel]);
    const auto other = static_cast<double>(frame[1 - channel]);
    const double y = step(weighting.shelf, x, lanes.shelf1[at], lanes.shelf2[at]);
    const double z = step(weighting.highPass, y, lanes.high1[at], lanes.high2[at]);
    lanes.weighted[at] += z * z;
    lanes.plain[at] += x * x;
    lanes.product[at] += x * other;
  }
}

}  // namespace

bool PlainAnalysisKernels::areFinite(std::span<const float> samples) {
  return std::ranges::all_of(samples, [](float sample) { return std::isfinite(sample); });
}

void PlainAnalysisKernels::raiseExtremes(std::span<const float> frames,
                                         std::span<const float> gains, std::span<float> extremes) {
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    widen(extremes.first(2), frames[i]);
    widen(extremes.subspan(2, 2), frames[i + 1]);
    for (std::size_t g = 0; g < gains.size(); ++g) {
      const float scaled = frames[i + 1] * gains[g];
      widen(extremes.subspan(4 + 4 * g, 2), frames[i] + scaled);
      widen(extremes.subspan(6 + 4 * g, 2), frames[i] - scaled);
    }
  }
}

void PlainAnalysisKernels::raiseMagnitudes(std::span<const float> frames,
                                           std::span<const float> gains, std::span<float> peaks) {
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    const float mid = std::fabs(frames[i]);
    const float side = std::fabs(frames[i + 1]);
    for (std::size_t g = 0; g < gains.size(); ++g) raise(peaks[g], mid + side * gains[g]);
  }
}

bool PlainAnalysisKernels::areUnder(std::span<const float> frames, const PeakGate& gate) {
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    if (passes(frames[i], frames[i + 1], gate)) return false;
  }
  return true;
}

void PlainAnalysisKernels::raisePeaks(std::span<const float> frames, const PeakGate& gate,
                                      std::span<const float> gains, std::span<float> left,
                                      std::span<float> right) {
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    if (!passes(frames[i], frames[i + 1], gate)) continue;
    for (std::size_t g = 0; g < gains.size(); ++g) {
      const float scaled = frames[i + 1] * gains[g];
      raise(left[g], frames[i] + scaled);
      raise(right[g], frames[i] - scaled);
    }
  }
}

void PlainAnalysisKernels::interpolate(std::span<const float> frames, std::span<const float> taps,
                                       std::span<float> out) {
  for (std::size_t i = 0; i < out.size(); ++i) {
    float sum = 0;
    for (std::size_t j = 0; j < taps.size(); ++j) sum += taps[j] * frames[i + 2 * j];
    out[i] = sum;
  }
}

void PlainAnalysisKernels::weigh(
    const KWeighting& weighting,
    const std::array<std::span<const float>, WeighingLanes::kStretches>& frames,
    WeighingLanes& lanes) {
  for (std::size_t i = 0; i + 1 < frames[0].size(); i += 2) {
    for (std::size_t lane = 0; lane < frames.size(); ++lane) {
      weighFrame(weighting, &frames[lane][i], lane, lanes);
    }
  }
}
