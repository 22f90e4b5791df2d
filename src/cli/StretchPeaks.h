// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "wav/WaveFileReader.h"

/// The loudest sample of each channel in a stretch of a recording, as it decodes at a width and
/// gain, before anything clips. Reads the stretch and no more, waiting for the medium.
class StretchPeaks {
 public:
  /// Frames [first, end). `gain` in dB, positive is louder; `angle` in degrees. Ends early once
  /// `*cancel` is true.
  StretchPeaks(const WaveFileReader& reader, std::uint64_t first, std::uint64_t end, double gain,
               double angle, const std::atomic<bool>* cancel);

  /// Magnitudes, full scale 1.0; what is not a number does not count.
  [[nodiscard]] float left() const { return _left; }
  [[nodiscard]] float right() const { return _right; }
  /// Why the file could not be read; empty when it could.
  [[nodiscard]] const std::string& failure() const { return _failure; }

 private:
  float _left = 0;
  float _right = 0;
  std::string _failure;
};
