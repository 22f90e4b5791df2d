// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// The sizes that a written file states once it is known how long it is. A file that 32-bit sizes
/// do not reach is made RF64 by them (EBU Tech 3306), with a chunk ds64 in the room of the JUNK
/// chunk that begins at byte 12. Immutable.
class ChunkSizes {
 public:
  /// Bytes that are to stand at a place of the file.
  struct Patch {
    std::uint32_t position;
    std::vector<std::byte> bytes;
  };

  /// Whether a file of so many bytes is RF64.
  static constexpr bool isRf64(std::uint64_t fileSize) { return fileSize > 0xFFFFFFFF; }

  /// Of a file of `fileSize` bytes, of which `dataSize` are samples in frames of `frameBytes`; the
  /// size field of the data is at `dataSizePosition`.
  static std::vector<Patch> patches(std::uint64_t fileSize, std::uint64_t dataSize,
                                    std::uint32_t frameBytes, std::uint32_t dataSizePosition);
  /// The same for a choice of `kRiffID`, which leaves the first four bytes as they are, `kRf64ID`
  /// or `kBw64ID`.
  static std::vector<Patch> patches(std::uint64_t fileSize, std::uint64_t dataSize,
                                    std::uint32_t frameBytes, std::uint32_t dataSizePosition,
                                    std::uint32_t identifier);
};
