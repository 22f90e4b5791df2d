// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

#include "playback/AudioFormat.h"

/// Stored samples to floats, full scale 1.0: exact for 8, 16 and 24 bits and for floats; 32-bit
/// integers are rounded to the 24 bits that a float has. Stateless; any thread; no allocation.
class SampleConverter {
 public:
  /// `bytes` holds exactly as many samples as `samples` takes.
  static void toFloats(SampleType type, std::span<const std::byte> bytes, std::span<float> samples);
};
