// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>

// What samples of 24 bits hold at most and at least, and what is no number of a level.
inline constexpr std::int32_t kMost = 8388607;
inline constexpr std::int32_t kLeast = -8388608;
inline constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
inline constexpr float kInfinity = std::numeric_limits<float>::infinity();
