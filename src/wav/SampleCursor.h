// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "wav/FrameDecoder.h"
#include "wav/WaveHeader.h"
#include "wav/WaveImage.h"

/// One reading position in the sample data of an image. Any number of cursors read the same image
/// at once, each used by one thread at a time.
///
/// A cursor never reads past the data chunk's stated end or past the end of the image. Of a file it
/// reads only what is at hand in the image and never waits, unless `waitForMedium` says otherwise.
class SampleCursor {
 public:
  SampleCursor() = default;
  SampleCursor(std::shared_ptr<const WaveImage> image, const WaveHeader& header,
               std::uint64_t encoding);

  /// The absolute byte offset of the next frame in the image.
  [[nodiscard]] std::uint64_t readDataIdx() const { return _readDataIdx; }
  void setReadDataIdx(std::uint64_t offset) { _readDataIdx = offset; }

  /// From now on what is not at hand is read from the file, which waits for the medium. `*cancel`,
  /// where given, ends the reading as if nothing more were there.
  void waitForMedium(const std::atomic<bool>* cancel = nullptr);

  /// Back to the first frame.
  void beginReadSample() { _readDataIdx = _dataStart; }
  /// True when no further whole frame follows, or frames have no bytes at all.
  [[nodiscard]] bool isFinishReadSample() const { return framesLeft() == 0; }
  /// Whole frames from here to the end, at hand or not.
  [[nodiscard]] std::uint64_t framesLeft() const { return framesFrom(_readDataIdx); }
  /// The same from another offset.
  [[nodiscard]] std::uint64_t framesFrom(std::uint64_t offset) const;
  /// Whole frames of the image.
  [[nodiscard]] std::uint64_t frameCount() const { return framesFrom(_dataStart); }
  [[nodiscard]] std::uint64_t frameBytes() const { return _decoder.frameBytes(); }

  /// The next frame as two floats. False, with both outputs -2.0, at the end or where the frame is
  /// not at hand.
  bool readNextSample(float& left, float& chanelRight);

  /// Fills `frames` with interleaved pairs, up to the end or to what is at hand; returns the number
  /// of frames read.
  std::uint64_t readFrames(std::span<float> frames);

  /// Offset in the image up to which `count` frames from `offset` on need it.
  [[nodiscard]] std::uint64_t endFor(std::uint64_t offset, std::uint64_t count) const;

 private:
  [[nodiscard]] std::uint64_t framesIn(std::uint64_t bytes, std::uint64_t wanted) const;
  [[nodiscard]] bool isApart() const;
  std::span<const std::byte> bytesHere();
  std::uint64_t readPiece(std::span<float> frames);
  bool readApart(float& left, float& right);
  [[nodiscard]] std::size_t read(std::uint64_t offset, std::span<std::byte> to) const;
  void fetch();

  std::shared_ptr<const WaveImage> _image;
  FrameDecoder _decoder;
  std::uint64_t _dataStart = 0;
  std::uint64_t _dataEnd = 0;
  std::uint64_t _readDataIdx = 0;
  bool _waits = false;
  const std::atomic<bool>* _cancel = nullptr;
  std::vector<std::byte> _piece;  ///< what was copied last of an image of a file,
  std::uint64_t _pieceStart = 0;  ///< from this offset on
};
