// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// How an analysis divides a take: blocks of 100 ms, whose sums loudness is made of; two bins a
/// block, for the waveform; units of 4 s, or less at high rates, which are read and worked on in
/// one piece.
///
/// The division depends on the rate and the length alone, so that the result does not depend on who
/// did which unit when. Frames count from the first one that is analysed. Where loudness is not
/// defined at the rate, a block is 4800 frames. Plain data; safe on any thread.
class TakeLayout {
 public:
  static constexpr std::size_t kBinsPerBlock = 2;
  static constexpr std::size_t kStretchesPerUnit = 4;  ///< that are weighed side by side

  TakeLayout() = default;
  TakeLayout(std::uint32_t sampleRate, std::uint64_t frames, bool isRawMidSide);

  [[nodiscard]] std::uint32_t sampleRate() const { return _sampleRate; }
  [[nodiscard]] std::uint64_t frames() const { return _frames; }
  /// Whether the channels are Mid and Side, else Left and Right.
  [[nodiscard]] bool isRawMidSide() const { return _isRawMidSide; }
  /// Whether loudness and true peak are defined at the rate.
  [[nodiscard]] bool hasLoudness() const;
  /// 0 where the rate is 0.
  [[nodiscard]] double seconds() const;

  [[nodiscard]] std::size_t blockFrames() const { return _blockFrames; }
  /// Blocks, the last one perhaps cut short.
  [[nodiscard]] std::size_t blocks() const;
  /// Blocks of full length: only these have a loudness.
  [[nodiscard]] std::size_t wholeBlocks() const { return _frames / _blockFrames; }

  [[nodiscard]] std::size_t bins() const;
  /// The first frame of a bin; of the bin after the last one the end of the take.
  [[nodiscard]] std::uint64_t binStart(std::size_t bin) const;
  /// The bin that holds a frame of the take.
  [[nodiscard]] std::size_t binOf(std::uint64_t frame) const;

  [[nodiscard]] std::size_t blocksPerStretch() const { return _blocksPerStretch; }
  [[nodiscard]] std::size_t blocksPerUnit() const { return kStretchesPerUnit * _blocksPerStretch; }
  [[nodiscard]] std::size_t framesPerUnit() const { return blocksPerUnit() * _blockFrames; }
  [[nodiscard]] std::size_t units() const;
  /// Blocks and bins of a unit, of which the last one may have fewer.
  [[nodiscard]] std::size_t blocksOf(std::size_t unit) const;
  [[nodiscard]] std::size_t binsOf(std::size_t unit) const;

 private:
  std::uint32_t _sampleRate = 0;
  std::uint64_t _frames = 0;
  bool _isRawMidSide = false;
  std::size_t _blockFrames = 4800;
  std::size_t _blocksPerStretch = 10;
};
