// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/HeardFrames.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "dsp/GainStage.h"
#include "dsp/Kernels.h"
#include "dsp/SideGain.h"

HeardFrames::HeardFrames(std::unique_ptr<WaveFileReader> reader) : _reader(std::move(reader)) {}

std::uint64_t HeardFrames::frameAt(double seconds) const {
  const double frame = std::ceil(seconds * _reader->header().SampleRate);
  if (!(frame > 0)) return 0;
  const std::uint64_t frames = _reader->frameCount();
  return frame < static_cast<double>(frames) ? static_cast<std::uint64_t>(frame) : frames;
}

std::span<const float> HeardFrames::read(double from, double to, int width, double gain) {
  const std::uint64_t first = frameAt(from);
  const std::uint64_t end = frameAt(to);
  if (first >= end || !_reader->follow(from, to)) return {};
  SampleCursor& cursor = _reader->cursor();
  cursor.setReadDataIdx(_reader->header().dataChunkPosition + first * cursor.frameBytes());
  _frames.resize(std::max<std::size_t>(_frames.size(), 2 * (end - first)));
  const std::span<float> all = std::span(_frames).first(2 * (end - first));
  const std::span<float> frames = all.first(2 * cursor.readFrames(all));
  const float divisor = GainStage::factor(-gain);
  if (_reader->isBoMSFormat()) {
    Kernels::decodeAndDivide(frames, SideGain::factor(width), divisor, divisor);
  } else {
    Kernels::divide(frames, divisor, divisor);
  }
  return frames;
}
