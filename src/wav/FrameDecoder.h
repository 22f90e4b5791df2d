// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

/// Turns the stored samples of interleaved frames into floats, channel 1 to left, every later
/// channel to right (so the last one stays there).
///
/// 24-bit integers are scaled by 2^-23 and 32-bit floats are taken as they are. Two rules are kept
/// on purpose although they make such files useless: 16-bit samples are read as unsigned, times
/// 2^-15, and 32-bit integers are scaled by 2^-64. Other widths write nothing. Channel c is read at
/// w * c * (c + 1) / 2 bytes, which is interleaving for the first two channels only.
///
/// Immutable; safe on any thread.
class FrameDecoder {
 public:
  /// What an output holds when no sample was written to it.
  static constexpr float kNoSample = -2.0F;

  FrameDecoder() = default;
  FrameDecoder(std::uint16_t numChannels, std::uint16_t bitsPerSample, std::uint64_t encoding);

  /// Bytes from one frame to the next; 0 with no channels or a width under 8 bits.
  [[nodiscard]] std::uint64_t frameBytes() const { return _frameBytes; }
  /// Whether a frame is two signed 24-bit integers and nothing else.
  [[nodiscard]] bool isPair24() const { return _numChannels == 2 && _sample == Sample::Signed24; }
  /// Bytes from the start of a frame to the end of the last sample that is read for it.
  [[nodiscard]] std::uint64_t reach() const { return _reach; }

  /// Decodes the frame at the start of `bytes`; samples that end past it leave their output alone.
  void decode(std::span<const std::byte> bytes, float& left, float& right) const;

  /// Copies bytes from an offset on; false when they are not all there.
  using ReadAt = std::function<bool(std::uint64_t offset, std::span<std::byte> to)>;
  /// Decodes one frame whose samples lie far apart by reading no more than the two that count.
  /// Offsets are taken from the start of the frame; bytes from `available` on do not exist. False
  /// when `read` was, with the outputs undefined.
  bool decodeApart(std::uint64_t available, const ReadAt& read, float& left, float& right) const;

  /// Decodes `frames.size() / 2` frames into interleaved left and right. `bytes` starts at the
  /// first frame, holds all of them, and goes on for as long as later bytes may be looked at.
  void decode(std::span<const std::byte> bytes, std::span<float> frames) const;

 private:
  enum class Sample { None, Unsigned16, Signed24, Signed32, Float32 };

  [[nodiscard]] float sampleAt(const std::byte* bytes) const;
  [[nodiscard]] std::uint64_t lastSampleWithin(std::uint64_t available) const;
  void decodePairs(const std::byte* bytes, std::span<float> frames) const;

  Sample _sample = Sample::None;
  std::uint16_t _numChannels = 0;
  std::uint64_t _sampleBytes = 0;
  std::uint64_t _frameBytes = 0;
  std::uint64_t _reach = 0;
};
