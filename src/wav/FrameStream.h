// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "wav/FrameDecoder.h"
#include "wav/WaveFileReader.h"

/// The frames of a file, from the first or any other to the last, in large blocks: from memory
/// where the image is loaded, else straight from the file, so that a long recording passes through
/// without being held. Reads wait for the medium; not for the interface thread. One thread at a
/// time, any number of streams over one image.
class FrameStream {
 public:
  /// Starts at the first frame. `*cancel`, where given, ends a wait for the medium early.
  explicit FrameStream(const WaveFileReader& reader, const std::atomic<bool>* cancel = nullptr);

  /// Whole frames from here to the end.
  [[nodiscard]] std::uint64_t framesLeft() const { return _framesLeft; }

  /// Goes to a frame, counted from the first one; beyond the end to the end.
  void seek(std::uint64_t frame);

  /// Fills `frames` with interleaved pairs; returns the number of frames, less than asked only at
  /// the end, and 0 there, on a cancel or a failure.
  std::uint64_t read(std::span<float> frames);

  /// Why reading failed; empty when it did not.
  [[nodiscard]] const std::string& failure() const { return _failure; }

 private:
  bool fetch();
  bool fetchWhole();

  std::shared_ptr<WaveImage> _image;
  FrameDecoder _decoder;
  const std::atomic<bool>* _cancel;
  bool _needsWhole;         ///< frames read bytes beyond themselves
  std::uint64_t _position;  ///< of the next frame, in the image
  std::uint64_t _framesLeft;
  std::uint64_t _frames;             ///< of the whole file
  std::vector<std::byte> _block;     ///< what was read from the file, where it was
  std::span<const std::byte> _held;  ///< bytes from `_position` on that are at hand
  std::string _failure;
};
