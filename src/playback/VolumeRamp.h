// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

/// Multiplies a stream by a volume that may change at any time; a change glides, the whole way from
/// 0 to 1 in 10 ms, so that it does not click. One thread.
class VolumeRamp {
 public:
  VolumeRamp(double sampleRate, std::uint32_t channels);

  /// The next block of interleaved frames on its way to `volume`. At 1.0 no bit changes.
  void apply(std::span<float> frames, float volume);
  /// The next block starts a new piece of sound: it has its volume from the first frame on.
  void restart() { _isFresh = true; }

 private:
  float next(float volume);

  std::uint32_t _channels;
  float _step;  ///< of one frame, for a change of 1
  float _current = 1.0F;
  bool _isFresh = true;
};
