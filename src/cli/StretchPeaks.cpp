// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "cli/StretchPeaks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "dsp/GainStage.h"
#include "dsp/Kernels.h"
#include "dsp/SideGain.h"
#include "wav/FrameStream.h"

namespace {

constexpr std::size_t kBlockFloats = 5120;

}  // namespace

StretchPeaks::StretchPeaks(const WaveFileReader& reader, std::uint64_t first, std::uint64_t end,
                           double gain, double angle, const std::atomic<bool>* cancel) {
  const float divisor = GainStage::factor(-gain);
  const float sideGain = SideGain::factor(WaveFileReader::wholeAngle(angle));
  FrameStream stream(reader);
  stream.stopAt(end);
  stream.seek(first);
  std::array<float, kBlockFloats> block{};
  while (!cancel->load(std::memory_order_relaxed)) {
    const std::span<float> frames = std::span(block).first(2 * stream.read(block));
    if (frames.empty()) break;
    if (reader.isBoMSFormat()) {
      Kernels::decodeAndDivide(frames, sideGain, divisor, divisor);
    } else {
      Kernels::divide(frames, divisor, divisor);
    }
    for (float& sample : frames) sample = std::fabs(sample);
    Kernels::raiseMaxima(frames, _left, _right);
  }
  _failure = stream.failure();
}
