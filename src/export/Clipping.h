// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// Where a signal goes over what 24 bits hold, by a step of theirs or more: what a 24-bit export
/// cuts off. One thread at a time.
class Clipping {
 public:
  /// Samples over full scale that lie close together: frames, the last one included.
  struct Place {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
  };
  static constexpr std::size_t kMostPlaces = 100;

  /// Samples less than a tenth of a second apart share a place.
  explicit Clipping(std::uint32_t sampleRate = 0) : _gap(sampleRate / 10) {}

  /// Whether a magnitude is over full scale.
  static bool isOver(float magnitude) { return magnitude > kFullScale; }

  /// The next frames, interleaved pairs, and the largest of their magnitudes, as the decode tells
  /// it.
  void look(std::span<const float> frames, float peak);

  /// So many frames do not clip, and nobody looks at them.
  void skip(std::uint64_t frames) { _position += frames; }

  /// How many there are; 0 where nothing clips.
  [[nodiscard]] std::uint64_t samples() const { return _samples; }
  /// The largest magnitude of all samples, if it is over full scale.
  [[nodiscard]] float peak() const { return _peak; }
  [[nodiscard]] std::uint64_t placeCount() const { return _placeCount; }
  /// The first of them, at most `kMostPlaces`.
  [[nodiscard]] const std::vector<Place>& places() const { return _places; }

 private:
  static constexpr float kFullScale = 1.0F + 0x1p-23F;  // rounding gets there, as at normalising

  void add(std::uint64_t frame);

  std::uint64_t _gap;
  std::uint64_t _position = 0;  ///< of the next frame
  std::uint64_t _samples = 0;
  float _peak = 0;
  std::uint64_t _placeCount = 0;
  std::uint64_t _last = 0;  ///< frame that clipped
  std::vector<Place> _places;
};
