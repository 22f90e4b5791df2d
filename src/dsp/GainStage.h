// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

#include "dsp/AdjustInfo.h"

/// Divides frames by a gain factor, in place. Gains are dB of attenuation: positive divides the
/// signal down; a caller that holds a user gain G (positive is louder) passes -G. A factor of 0
/// (minus infinity dB) leaves the samples as they are. Frames are interleaved pairs of floats.
/// Stateless; safe on any thread; no allocation.
class GainStage {
 public:
  /// Frames over which a changed gain glides, 20 ms at 48 kHz.
  static constexpr std::size_t kRampFrames = 960;
  /// The gains that programs let a user set: so many dB up and down.
  static constexpr int kMostGain = 36;

  /// 10^(dB / 20), taken in double and rounded to float.
  static float factor(double dB);

  /// Element 0 of every frame by the factor of `dBLeft`, element 1 by that of `dBRight`.
  static void apply(std::span<float> frames, double dBLeft, double dBRight);

  /// The factor moves linearly from that of `prevGain` to that of `curGain` over the first
  /// `kRampFrames` frames, or over the whole buffer where it is shorter, then holds.
  static void glide(std::span<float> frames, const AdjustDBInfo& info);
};
