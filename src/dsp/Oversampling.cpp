// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/Oversampling.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr std::uint32_t kTwiceFrom = 96000;
constexpr std::uint32_t kOnceFrom = 192000;
constexpr double kHalfWidth = 6;

double windowedSinc(double t) {
  const double sinc = std::sin(std::numbers::pi * t) / (std::numbers::pi * t);
  return sinc * 0.5 * (1.0 + std::cos(std::numbers::pi * t / kHalfWidth));
}

Oversampling::Phase phaseAt(double position) {
  Oversampling::Phase taps{};
  for (std::size_t j = 0; j < taps.size(); ++j) {
    const double tap = static_cast<double>(j) - static_cast<double>(Oversampling::kBefore);
    taps[j] = static_cast<float>(windowedSinc(position - tap));
  }
  return taps;
}

const std::array<Oversampling::Phase, 3> kFourTimes{phaseAt(0.25), phaseAt(0.5), phaseAt(0.75)};

float sumOfMagnitudes(const Oversampling::Phase& taps) {
  float sum = 0;
  for (const float tap : taps) sum += std::fabs(tap);
  return sum;
}

}  // namespace

unsigned Oversampling::factor(std::uint32_t rate) {
  if (rate < kTwiceFrom) return 4;
  return rate < kOnceFrom ? 2 : 1;
}

std::span<const Oversampling::Phase> Oversampling::phases(unsigned factor) {
  const std::span all(kFourTimes);
  if (factor >= 4) return all;
  return factor == 2 ? all.subspan(1, 1) : all.first(0);
}

float Oversampling::greatestGain() {
  static const float kGreatest =
      std::max({sumOfMagnitudes(kFourTimes[0]), sumOfMagnitudes(kFourTimes[1]),
                sumOfMagnitudes(kFourTimes[2])});
  return kGreatest;
}
