// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "wav/ImageFields.h"

/// The sizes that an RF64 or BW64 file states in its chunk "ds64" (EBU Tech 3306, ITU-R BS.2088):
/// they count where a 32-bit size field holds 0xFFFFFFFF. Immutable.
class LongSizes {
 public:
  /// What a size field holds whose size stands in "ds64".
  static constexpr std::uint32_t kElsewhere = 0xFFFFFFFF;
  /// Bytes of the payload without its table.
  static constexpr std::uint32_t kFixedSize = 28;
  /// No file has nearly as many chunks that pass 4 GiB; further entries are not read.
  static constexpr std::uint32_t kMostEntries = 256;

  /// Where the chunk and its fields stand in the file, of which it is the first chunk.
  static constexpr std::uint32_t kChunkAt = 12;
  static constexpr std::uint32_t kRiffAt = 20;
  static constexpr std::uint32_t kDataAt = 28;
  static constexpr std::uint32_t kFrameCountAt = 36;
  static constexpr std::uint32_t kEntryCountAt = 44;
  static constexpr std::uint32_t kEntriesAt = 48;

  /// Reads the chunk, which has to be the first one, with all of its fixed part in the file; none
  /// where it is not.
  static std::optional<LongSizes> read(ImageFields& fields);

  /// Of the whole file, less 8 bytes.
  [[nodiscard]] std::uint64_t riffSize(std::uint32_t stated) const {
    return stated == kElsewhere ? _riff : stated;
  }
  /// Of a chunk. Of several entries with its identifier the first counts; without one the size is
  /// what the field holds.
  [[nodiscard]] std::uint64_t chunkSize(std::uint32_t identifier, std::uint32_t stated) const;

 private:
  struct Entry {
    std::uint32_t identifier;
    std::uint64_t size;
  };

  std::uint64_t _riff = 0;
  std::vector<Entry> _entries;  ///< that of the data first
};
