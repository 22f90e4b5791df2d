// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "export/FrameRange.h"
#include "wav/BextChunkInfo.h"
#include "wav/WaveFileReader.h"

/// What an export takes over from its source where it is asked for: when it was recorded, how it
/// came to be, and its markers and texts, the chunks "cue ", "LIST" and "iXML". Immutable.
///
/// The marks of a stretch count from its beginning, those outside of it are left out; texts that
/// belong to such a mark stay. Chunks that pass 16 MiB are left out. An odd one gets a zero byte
/// that counts, as the recorder does not know of pad bytes.
class KeptMetadata {
 public:
  static constexpr std::uint64_t kMostBytes = 16 << 20;

  struct Chunk {
    std::string identifier;
    std::vector<std::byte> bytes;  ///< an even number
  };

  /// A chunk that passes what is kept.
  struct LeftOut {
    std::string identifier;
    std::uint64_t bytes;
  };

  /// Nothing.
  KeptMetadata() = default;
  /// Of a source whose broadcast extension is `bext`; nothing of that where it has fewer than 602
  /// bytes. Waits for the medium.
  KeptMetadata(const WaveFileReader& source, std::span<const std::uint8_t> bext,
               const FrameRange& range);

  /// Puts date, time and time reference into the extension of an export, and the source's coding
  /// history before its own. There the mark of raw Mid and Side becomes MSRAW=DECODED: whoever
  /// looks for it, the recorder too, would decode the export once more. What is not ASCII becomes
  /// "?".
  void putInto(BextChunkInfo& info) const;
  [[nodiscard]] const std::vector<Chunk>& chunks() const { return _chunks; }
  [[nodiscard]] const std::vector<LeftOut>& leftOut() const { return _leftOut; }
  /// Whether a chunk could not be read as a whole.
  [[nodiscard]] bool isCutShort() const { return _isCutShort; }
  /// Bytes of the chunks with their headers.
  [[nodiscard]] std::uint64_t size() const;

 private:
  void takeExtension(std::span<const std::uint8_t> bext, const FrameRange& range);
  void takeChunk(const WaveFileReader& source, const ChunkInfo& chunk, const FrameRange& range);

  std::string _date;
  std::string _time;
  std::string _history;
  std::int64_t _timeReference = 0;
  std::vector<Chunk> _chunks;
  std::vector<LeftOut> _leftOut;
  bool _isCutShort = false;
};
