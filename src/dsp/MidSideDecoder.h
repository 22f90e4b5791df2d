// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "dsp/AdjustInfo.h"

/// Turns raw Mid/Side frames into Left/Right, in place: Left = M + S * k, Right = M - S * k, with k
/// the `SideGain` of the angle. Nothing is normalised or clipped. Frames are interleaved pairs of
/// floats. Stateless; safe on any thread; no allocation.
class MidSideDecoder {
 public:
  /// Every frame with one angle (degrees, clamped to 0..150).
  static void decode(std::span<float> frames, int angle);

  /// The angle glides from `prevAngle` to `curAngle`, one degree a frame, the first frame already
  /// one step on its way, and then holds. `curAngle` is read afresh for each frame, so that a
  /// change made during the call takes effect at once. `info` is only read.
  static void glide(std::span<float> frames, const AdjustAngleInfo& info);
};
