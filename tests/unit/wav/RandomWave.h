// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

/// Files that look like WAVE files and are wrong in every way that chunk layouts can be: sizes that
/// lie, odd sizes without padding, unknown and repeated chunks, cut ends. The same seed gives the
/// same file.
class RandomWave {
 public:
  using Bytes = std::vector<std::byte>;

  explicit RandomWave(std::uint32_t seed) : _random(seed) {}

  /// Anything.
  Bytes file();
  /// One format and one data chunk that can be decoded, with some other chunks around them.
  Bytes soundFile();

  /// A number from 0 to `last`.
  std::uint32_t upTo(std::uint32_t last);
  double between(double low, double high);

 private:
  bool oneIn(std::uint32_t n) { return upTo(n - 1) == 0; }
  std::uint32_t pick(std::initializer_list<std::uint32_t> choices);
  Bytes noise(std::size_t count);
  Bytes formatPayload();
  std::uint32_t statedSize(std::size_t size);
  std::uint32_t riffSize(std::size_t fileSize);
  Bytes chunk();
  Bytes soundFormat(std::uint32_t bits);
  Bytes soundData(std::uint32_t bits, std::size_t samples);

  std::mt19937 _random;
};
