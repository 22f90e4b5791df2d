// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dsp/MidSideDecoder.h"

#include <cstddef>
#include <cstdint>

#include "dsp/Kernels.h"
#include "dsp/PlainKernels.h"
#include "dsp/SideGain.h"

namespace {

std::int64_t stepToward(std::int64_t target, std::int64_t angle) {
  if (target < angle) return angle - 1;
  return target > angle ? angle + 1 : angle;
}

}  // namespace

void MidSideDecoder::decode(std::span<float> frames, int angle) {
  Kernels::decodeMidSide(frames, SideGain::factor(angle));
}

void MidSideDecoder::glide(std::span<float> frames, const AdjustAngleInfo& info) {
  const volatile std::int64_t& target = info.curAngle;
  std::int64_t angle = info.prevAngle;
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    angle = stepToward(target, angle);
    PlainKernels::decodeMidSide(frames.subspan(i, 2), SideGain::factor(angle));
  }
}
