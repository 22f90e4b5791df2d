// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "wav/WaveFileReader.h"

/// The frames of a take at a time, as they are heard: decoded at a width, with a gain. From what is
/// at hand, never waiting for the medium; no allocation once the longest stretch has been asked
/// for. One thread.
class HeardFrames {
 public:
  /// Of a valid file.
  explicit HeardFrames(std::unique_ptr<WaveFileReader> reader);

  /// Interleaved pairs, Left and Right, of the frames that begin in [from, to), in seconds; valid
  /// until the next call. Empty where not all of them are at hand, which are read ahead then, and
  /// where there are none. `gain` in dB, positive is louder.
  std::span<const float> read(double from, double to, int width, double gain);

  [[nodiscard]] WaveFileReader& reader() { return *_reader; }

 private:
  [[nodiscard]] std::uint64_t frameAt(double seconds) const;

  std::unique_ptr<WaveFileReader> _reader;
  std::vector<float> _frames;
};
