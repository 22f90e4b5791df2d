// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// The factor applied to Side for each whole degree of stereo width.
///
/// 0 is mono (Side removed); 1 to 15 climb from -48 dB to -21 dB in 14 equal steps; from 16 on a
/// degree is 0.2 dB, with 0 dB at 120 and +6 dB at 150. Constant; safe on any thread.
class SideGain {
 public:
  static constexpr int kMinAngle = 0;
  static constexpr int kMaxAngle = 150;
  /// Side as loud as it was recorded: the plain sum and difference.
  static constexpr int kUnityAngle = 120;

  /// The linear factor of an angle in degrees. Angles outside 0..150 are clamped to that range.
  static float factor(std::int64_t angle);
};
