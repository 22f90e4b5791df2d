// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "app/HeardSound.h"
#include "wav/WaveFileReader.h"

/// The frames of a take at a time, as they are heard: decoded at a width, with a gain, past the
/// turn of a loop those of its beginning. From what is at hand, never waiting for the medium; no
/// allocation once the longest stretch has been asked for. One thread.
class HeardFrames {
 public:
  /// Of a valid file.
  explicit HeardFrames(std::unique_ptr<WaveFileReader> reader);

  /// Has the samples from a time on read ahead, in seconds, and tells whether those up to `to`, or
  /// to the turn, are at hand.
  bool follow(double from, double to, const HeardSound& sound);
  /// Interleaved pairs, Left and Right, of the frames that begin in [from, to), in seconds; valid
  /// until the next call. Empty where not all of them are at hand, which are read ahead then, and
  /// where there are none; what comes after a turn is left out where it is not at hand.
  std::span<const float> read(double from, double to, const HeardSound& sound);
  /// The time that is heard at `to` by one who hears on from `from`: another one after a turn.
  [[nodiscard]] double heardAt(double from, double to, const HeardSound& sound) const;

  [[nodiscard]] WaveFileReader& reader() { return *_reader; }

 private:
  /// Frames in order, and those after the turn, at the loop's beginning.
  struct Stretch {
    std::uint64_t first = 0;
    std::uint64_t count = 0;
    std::uint64_t turned = 0;
  };

  [[nodiscard]] std::uint64_t frameAt(double seconds) const;
  [[nodiscard]] Stretch stretch(double from, double to, const HeardSound& sound) const;
  [[nodiscard]] double secondsAt(std::uint64_t frame) const;
  bool followFrames(std::uint64_t first, std::uint64_t count);
  std::size_t readFrames(std::uint64_t first, std::uint64_t count, std::size_t at);
  void decode(std::span<float> frames, const HeardSound& sound) const;

  std::unique_ptr<WaveFileReader> _reader;
  std::vector<float> _frames;
};
