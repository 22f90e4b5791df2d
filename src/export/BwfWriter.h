// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "export/AtomicFile.h"
#include "export/BackgroundWriter.h"
#include "export/ChunkSizes.h"
#include "export/RawBytes.h"
#include "wav/BextChunkInfo.h"
#include "wav/WaveFileReader.h"

/// Assembles one Broadcast Wave file: RIFF, JUNK (28 zero bytes), bext, an 18-byte fmt, data. One
/// that 32-bit sizes do not reach becomes RF64 in the end (EBU Tech 3306), with a chunk ds64 in the
/// room of JUNK; nothing else of it is another.
///
/// Order of use: construct, `Write` the sample bytes, `FixUpChunkSizes`, `Save2File`. The file is
/// held in memory until it is saved, unless `streamTo` comes before the first `Write`: then the
/// bytes go to the target's temporary file, on a thread of their own, as they arrive. Nothing
/// throws; one thread at a time.
class BwfWriter {
 public:
  static constexpr std::size_t kMostAtOnce = 1 << 16;

  /// Writes every header. Channels and rate are the source's; with no source they are 0, as are
  /// the RIFF and WAVE identifiers.
  BwfWriter(const WaveFileReader* reader, const BextChunkInfo& bext, bool is24bit);

  /// Of a sample: 24, or 32 of a float.
  static constexpr std::uint16_t bitsPerSample(bool is24bit) { return is24bit ? 24 : 32; }
  /// Bytes of a file with this many sample bytes and this coding history.
  static std::uint64_t fileSize(std::string_view codingHistory, std::uint64_t sampleBytes);

  /// Opens the temporary file of `path` and sends all bytes there from now on. `expectedSize` bytes
  /// have to be free. False, with `failure` set, when that is not to be had, when sample bytes have
  /// been written already (those stay where they are), or after `dispose`.
  bool streamTo(const std::filesystem::path& path, AtomicFile::Existing existing,
                std::uint64_t expectedSize);

  /// Appends sample bytes.
  void Write(const void* bytes, std::uint32_t count);
  /// Appends room for this many sample bytes, for the caller to fill before the next call: `Write`
  /// without a copy.
  /// More than `kMostAtOnce` make it move what it holds.
  std::span<std::byte> extend(std::uint32_t count);
  /// Appends a chunk of an even number of bytes after the samples, of which none may follow.
  void appendChunk(std::string_view identifier, std::span<const std::byte> bytes);
  /// Sets the RIFF size and the data size. Calling it again, or after `dispose`, is harmless.
  void FixUpChunkSizes();
  /// Puts the file in its place, whole or not at all; see `AtomicFile`. A streamed file can be
  /// saved once, to the path it was streamed to; a disposed one not at all.
  bool Save2File(const std::filesystem::path& path);
  /// Drops what was assembled, the temporary file included.
  void dispose();

  /// Why the last failing operation failed; empty when none did.
  [[nodiscard]] const std::string& failure() const { return _failure; }
  /// What is held in memory: the whole file, or what has not been streamed yet.
  [[nodiscard]] std::span<const std::byte> data() const { return _data; }
  /// Four characters as a 32-bit little-endian identifier; 0 for any other length.
  static std::uint32_t stringToInt32(std::string_view text);

  // No program calls what follows; it belongs to the system's interface.

  /// Sample bytes so far.
  [[nodiscard]] std::uint64_t dataLength() const { return _dataLength; }
  /// Where the data chunk's size field is.
  [[nodiscard]] std::uint32_t dataChunkSizePosition() const { return _dataChunkSizePosition; }

 private:
  void append(std::span<const std::byte> bytes);
  void appendU16(std::uint16_t value);
  void appendU32(std::uint32_t value);
  void appendU64(std::uint64_t value);
  void appendField(std::string_view text, std::size_t width);
  void appendBext(const BextChunkInfo& bext);
  void appendFormat(const WaveHeader& source, bool is24bit);
  void patch(std::uint32_t position, std::span<const std::byte> bytes);
  void sendOut();
  void finishSending();
  /// Empty where nothing stands against it.
  [[nodiscard]] std::string_view whyNotStreamed() const;
  [[nodiscard]] std::string_view whyNotSaved(const std::filesystem::path& path) const;

  RawBytes _data;
  RawBytes _rest;  ///< what came after the last whole block
  std::uint32_t _dataChunkSizePosition = 0;
  std::uint64_t _dataLength = 0;
  std::uint16_t _frameBytes = 0;
  std::unique_ptr<AtomicFile> _stream;
  std::filesystem::path _streamPath;  ///< empty while the file is held in memory
  std::unique_ptr<BackgroundWriter> _sender;
  std::uint64_t _streamed = 0;  ///< bytes already sent to `_stream`
  bool _isDisposed = false;
  std::string _failure;
};
