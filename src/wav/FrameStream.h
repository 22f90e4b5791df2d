// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "wav/FrameDecoder.h"
#include "wav/WaveFileReader.h"

/// The frames of a file, from the first or any other to the last, in large blocks, straight from
/// the file where the image is not in memory: a recording of any length passes through without
/// being held. Reads wait for the medium; not for the interface thread. One thread at a time, any
/// number of streams over one image.
class FrameStream {
 public:
  /// What is read at once unless somebody says otherwise: from a slow medium soon there.
  static constexpr std::size_t kBlockBytes = 245760;

  /// Starts at the first frame. At most `blockBytes` are read and held at once.
  explicit FrameStream(const WaveFileReader& reader, std::size_t blockBytes = kBlockBytes);

  /// Whole frames from here to the end.
  [[nodiscard]] std::uint64_t framesLeft() const { return _framesLeft; }

  /// Goes to a frame, counted from the first one; beyond the end to the end.
  void seek(std::uint64_t frame);

  /// Ends before this frame instead, and reads no byte beyond it that is not needed.
  void stopAt(std::uint64_t frame);

  /// Fills `frames` with interleaved pairs; returns the number of frames, less than asked only at
  /// the end, and 0 there or on a failure.
  std::uint64_t read(std::span<float> frames);

  /// Whether frames are two signed 24-bit integers, as `readPacked` passes them on.
  [[nodiscard]] bool isPair24() const { return _decoder.isPair24(); }

  /// The next frames of two signed 24-bit integers as they stand in the file: at most so many, and
  /// fewer where a block ends; none at the end and on a failure. They stay until the next read.
  std::span<const std::byte> readPacked(std::uint64_t frames);

  /// Why reading failed; empty when it did not.
  [[nodiscard]] const std::string& failure() const { return _failure; }

 private:
  bool fetch();
  void pass(std::uint64_t frames);
  std::uint64_t readApart(std::span<float> frames);
  std::uint64_t fail();

  std::shared_ptr<WaveImage> _image;
  FrameDecoder _decoder;
  std::size_t _blockBytes;
  bool _isApart;            ///< samples of a frame lie further apart than a block holds
  std::uint64_t _position;  ///< of the next frame, in the image
  std::uint64_t _framesLeft;
  std::uint64_t _frames;             ///< of the whole file, or where it stops
  std::vector<std::byte> _block;     ///< what was read from the file, where it was
  std::span<const std::byte> _held;  ///< bytes from `_position` on that are at hand,
  std::uint64_t _heldFrames = 0;     ///< enough for as many frames
  std::string _failure;
};
