// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "playback/VolumeRamp.h"

#include <algorithm>

namespace {

constexpr double kSeconds = 0.01;

}  // namespace

VolumeRamp::VolumeRamp(double sampleRate, std::uint32_t channels)
    : _channels(std::max(channels, 1U)),
      _step(static_cast<float>(1.0 / std::max(1.0, sampleRate * kSeconds))) {}

float VolumeRamp::next(float volume) {
  _current =
      _current < volume ? std::min(volume, _current + _step) : std::max(volume, _current - _step);
  return _current;
}

void VolumeRamp::apply(std::span<float> frames, float volume) {
  if (_isFresh) _current = volume;
  _isFresh = false;
  if (_current == volume && volume == 1.0F) return;
  for (std::size_t i = 0; i + _channels <= frames.size(); i += _channels) {
    const float factor = next(volume);
    for (float& sample : frames.subspan(i, _channels)) sample *= factor;
  }
}
