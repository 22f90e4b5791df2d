// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "wav/FrameDecoder.h"
#include "wav/WaveHeader.h"
#include "wav/WaveImage.h"

/// One reading position in the sample data of an image. Any number of cursors read the same image
/// at once, each used by one thread at a time.
///
/// A cursor never reads past the data chunk's stated end, past the end of the image, or what has
/// not been loaded yet.
class SampleCursor {
 public:
  SampleCursor() = default;
  SampleCursor(std::shared_ptr<const WaveImage> image, const WaveHeader& header,
               std::uint64_t encoding);

  /// The absolute byte offset of the next frame in the image.
  [[nodiscard]] std::uint64_t readDataIdx() const { return _readDataIdx; }
  void setReadDataIdx(std::uint64_t offset) { _readDataIdx = offset; }

  /// Back to the first frame.
  void beginReadSample() { _readDataIdx = _dataStart; }
  /// True when no further whole frame follows, or frames have no bytes at all.
  [[nodiscard]] bool isFinishReadSample() const { return framesLeft() == 0; }
  /// Whole frames from here to the end, loaded or not.
  [[nodiscard]] std::uint64_t framesLeft() const;
  [[nodiscard]] std::uint64_t frameBytes() const { return _decoder.frameBytes(); }

  /// The next frame as two floats. False, with both outputs -2.0, at the end or where the frame is
  /// not loaded yet.
  bool readNextSample(float& left, float& chanelRight);

  /// Fills `frames` with interleaved pairs, up to the end or to what is loaded; returns the number
  /// of frames read.
  std::uint64_t readFrames(std::span<float> frames);

  /// Offset in the image up to which the next `count` frames need it to be loaded.
  [[nodiscard]] std::uint64_t loadedEndFor(std::uint64_t count) const;

 private:
  [[nodiscard]] std::uint64_t framesLoaded(std::uint64_t wanted) const;

  std::shared_ptr<const WaveImage> _image;
  FrameDecoder _decoder;
  std::uint64_t _dataStart = 0;
  std::uint64_t _dataEnd = 0;
  std::uint64_t _readDataIdx = 0;
};
