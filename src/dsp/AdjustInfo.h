// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

/// What the gliding gain moves between, in dB of attenuation (positive is softer).
struct AdjustDBInfo {
  std::int64_t curGain = 0;   ///< the gain to reach
  std::int64_t prevGain = 0;  ///< the gain of the previous buffer
};

/// What the gliding decode moves between, in degrees of stereo width, 0 to 150.
struct AdjustAngleInfo {
  std::int64_t curAngle = 0;   ///< the angle to reach
  std::int64_t prevAngle = 0;  ///< the angle of the previous buffer
};
