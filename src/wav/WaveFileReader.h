// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dsp/AdjustInfo.h"
#include "wav/SampleCursor.h"
#include "wav/WavArray.h"
#include "wav/WaveHeader.h"
#include "wav/WaveImage.h"
#include "wav/WaveIndex.h"

/// One WAVE file: its image, its chunk index, and a read cursor over its sample data.
///
/// A copy shares the image and the index and has a cursor of its own, so a thread that reads
/// samples takes a copy: copies are cheap. Each single reader is used by one thread at a time; the
/// class operations are stateless and safe on any thread. Nothing throws; a file that cannot be
/// used shows as `isValidFile` false.
class WaveFileReader {
 public:
  static constexpr std::uint64_t kWholeChunk = std::numeric_limits<std::uint64_t>::max();

  /// A reader over a copy of `data`. Always a reader: ask `isValidFile`.
  static std::unique_ptr<WaveFileReader> readFromData(std::span<const std::byte> data);

  /// A reader over the file at `path`, which is indexed here, waiting for the medium, but not held.
  /// Its samples are read ahead where `follow` says, or, after `waitForMedium`, when they are asked
  /// for. None where the file cannot be read, with the reason in `whyNot`.
  static std::unique_ptr<WaveFileReader> openFile(const std::filesystem::path& path,
                                                  std::string& whyNot);

  /// A reader of the same open file that shares no image with this one: for work that may hang in a
  /// read after everybody else has let the file go. Shares the bytes where they are in memory.
  [[nodiscard]] WaveFileReader apart() const;

  /// Builds header, chunks and validity from the image. After `dispose` there is none, and the file
  /// is not valid.
  void parseWave();
  [[nodiscard]] bool isValidFile() const { return _index->isValidFile; }
  /// Why the file is not valid, a phrase for people; empty when it is.
  [[nodiscard]] std::string_view whyInvalid() const;

  [[nodiscard]] const WaveHeader& header() const { return _index->header; }
  [[nodiscard]] const std::vector<ChunkInfo>& chunks() const { return _index->chunks; }
  [[nodiscard]] std::uint64_t encoding() const { return _index->encoding; }
  /// The whole file for a reader over data; an empty array otherwise and after `dispose`.
  [[nodiscard]] const WavArray& raw() const;
  /// The shared image; null after `dispose`.
  [[nodiscard]] const std::shared_ptr<WaveImage>& image() const { return _image; }
  /// As the file was when it was opened.
  [[nodiscard]] FileState fileState() const { return _image ? _image->fileState() : FileState(); }

  /// True when the two channels hold raw Mid and Side. Never set by the reader itself.
  [[nodiscard]] bool isBoMSFormat() const { return _isBoMSFormat; }
  void setIsBoMSFormat(bool isRaw) { _isBoMSFormat = isRaw; }

  /// The first "bext" chunk, or none.
  [[nodiscard]] std::optional<ChunkInfo> getBextChunk() const { return _index->find("bext"); }
  /// A copy of the chunk's payload, owned by the caller; cut at the end of the image, and after
  /// `most` bytes.
  [[nodiscard]] WavArray getChunkData(const ChunkInfo& chunk,
                                      std::uint64_t most = kWholeChunk) const;
  /// The bytes up to the first zero or `length` as text: each byte one Latin-1 character, in UTF-8.
  static std::string DecodeAsString(const std::uint8_t* bytes, std::uint64_t length);

  void beginReadSample() { _cursor.beginReadSample(); }
  [[nodiscard]] bool isFinishReadSample() const { return _cursor.isFinishReadSample(); }
  bool readNextSample(float& left, float& chanelRight) {
    return _cursor.readNextSample(left, chanelRight);
  }
  [[nodiscard]] std::uint64_t readDataIdx() const { return _cursor.readDataIdx(); }
  /// The cursor, for reading in blocks.
  SampleCursor& cursor() { return _cursor; }

  /// Lets samples be read from the file where they are not at hand; see `SampleCursor`.
  void waitForMedium(const std::atomic<bool>* cancel = nullptr) { _cursor.waitForMedium(cancel); }
  /// Has the samples from this time on read ahead, in seconds, and tells whether those up to `to`
  /// are at hand already: a level measured then is that of the whole stretch. Never waits. A
  /// stretch that needs more than 3.75 MiB of the file at a time may never be.
  bool follow(double from, double to);

  /// Whole frames that can be read.
  [[nodiscard]] std::uint64_t frameCount() const { return _cursor.frameCount(); }
  /// Audio that can be read, in seconds; 0 where the rate or the frame size is 0.
  [[nodiscard]] double durationSeconds() const;

  /// The highest signed value of each channel between two times in seconds, decoded (raw Mid/Side
  /// files, `angle` in degrees truncated) and divided by `gain` (dB of attenuation).
  ///
  /// Starts at the first whole frame at or after `from`. The end is bounded by the data chunk's
  /// LENGTH although it is compared with a file position: the last `dataChunkPosition` bytes of the
  /// data are never measured, on purpose. With nothing read the pair (-2, -2) goes through decode
  /// and gain; frames without bytes give exactly -2. Measures only what is at hand,
  /// unless `waitForMedium` was called.
  void getSampleLevelMeterFrom(double from, double to, float& chanelLeft, float& chanelRight,
                               double gain, double angle);

  /// Lets go of the image; it is freed with its last reader. No samples after this.
  void dispose();

  /// An angle truncated toward zero to whole degrees and clamped to what the table holds.
  static int wholeAngle(double angle);

  // No program calls what follows; it belongs to the system's interface.

  /// Decodes the frame at the start of `data`; see `FrameDecoder`.
  void getSample(float& left, float& changeRight, std::span<const std::byte> data) const;

  // The signal operations, in place on interleaved pairs of floats; see `MidSideDecoder` and
  // `GainStage`. `bits` is not used by any of them. The plain forms count `sampleLength` in floats
  // (an odd count also touches the float after it), the ForPlaying forms in frames, on purpose.

  static void COM_SetCvtMSSample(int bits, float* sample, int angle);
  static void COM_MSDecode(int bits, float* sample, std::uint64_t sampleLength, int angle);
  static void COM_MSDecodeForPlaying(int bits, float* sample, std::uint64_t sampleLength,
                                     const AdjustAngleInfo* info);
  static float COM_SetCvtdBSample(int bits, float sample, float divisor);
  static void COM_AdjustdB(int bits, float* sample, std::uint64_t sampleLength, double dBL,
                           double dBR);
  static void COM_AdjustdBForPlaying(int bits, float* sample, std::uint64_t sampleLength,
                                     const AdjustDBInfo* info);

 private:
  explicit WaveFileReader(std::shared_ptr<WaveImage> image);
  [[nodiscard]] std::uint64_t byteOffset(double seconds) const;
  [[nodiscard]] std::uint64_t levelEnd(double seconds) const;
  void measureMaxima(std::uint64_t end, float& left, float& right);

  std::shared_ptr<WaveImage> _image;
  std::shared_ptr<const WaveIndex> _index;
  SampleCursor _cursor;
  bool _isBoMSFormat = false;
};
