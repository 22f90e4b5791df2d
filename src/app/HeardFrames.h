// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "app/HeardSound.h"
#include "wav/WaveFileReader.h"

/// The frames of a take at a time, as they are heard: decoded at the width and with the gain that
/// they were filled with for that, past the turn of a loop those of its beginning. From what is at
/// hand, never waiting for the medium; no allocation once the longest stretch has been asked for.
/// One thread.
class HeardFrames {
 public:
  /// Of a valid file.
  explicit HeardFrames(std::unique_ptr<WaveFileReader> reader);

  /// Interleaved pairs, Left and Right, of the frames that begin in [from, to), in seconds; valid
  /// until the next call. None where not all of them are at hand, empty where there are none. They
  /// are read ahead from there on. What comes after a turn is left out where it is not at hand.
  std::optional<std::span<const float>> read(double from, double to, const HeardSound& sound);
  /// The time that is heard at `to` by one who hears on from `from`: another one after a turn.
  [[nodiscard]] double heardAt(double from, double to, const HeardSound& sound) const;
  /// The inverse: how long one hears on from `from` until `time` is heard; less than nothing where
  /// that was before. In a loop the shorter way counts.
  [[nodiscard]] double secondsUntil(double from, double time, const HeardSound& sound) const;

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
  void decode(std::uint64_t first, std::span<float> frames, const HeardSound& sound) const;
  void decodePiece(std::span<float> frames, const PlayedSettings::Settings& settings) const;

  std::unique_ptr<WaveFileReader> _reader;
  std::vector<float> _frames;
};
