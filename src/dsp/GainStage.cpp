// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/GainStage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "dsp/Kernels.h"
#include "dsp/PlainKernels.h"

namespace {

double glideEnd(std::int64_t dB) {
  const float exponent = static_cast<float>(dB) / 20.0F;
  return std::pow(10.0, static_cast<double>(exponent));
}

}  // namespace

float GainStage::factor(double dB) {
  return static_cast<float>(std::pow(10.0, dB / 20.0));
}

void GainStage::apply(std::span<float> frames, double dBLeft, double dBRight) {
  Kernels::divide(frames, factor(dBLeft), factor(dBRight));
}

void GainStage::glide(std::span<float> frames, const AdjustDBInfo& info) {
  const double from = glideEnd(info.prevGain);
  const double to = glideEnd(info.curGain);
  const std::size_t ramp = std::min(frames.size() / 2, kRampFrames);
  for (std::size_t n = 0; n < ramp; ++n) {
    const auto position = static_cast<double>(n);
    const auto divisor =
        static_cast<float>(from + (to - from) * position / static_cast<double>(ramp));
    PlainKernels::divide(frames.subspan(2 * n, 2), divisor, divisor);
  }
  const auto held = static_cast<float>(to);
  Kernels::divide(frames.subspan(2 * ramp), held, held);
}
