// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "wav/WaveHeader.h"
#include "wav/WaveImage.h"

/// The top-level chunks of a WAVE file and the summary of what matters in them.
///
/// The rules are the recorder's, not quite RIFF's: an odd-sized chunk is not followed by a skipped
/// pad byte, a "data" or "fmt " chunk may claim more bytes than the file has, and a later "fmt " or
/// "data" chunk overrides an earlier one. An RF64 or BW64 file, whose sizes may have 64
/// bits (`LongSizes`), is read by the same rules but for two: a zero byte after an odd-sized chunk
/// is its pad byte, and no size wraps; what is larger than the file ends with it.
struct WaveIndex {
  /// No recording has nearly as many chunks. Each eight zero bytes would be one more, so that a
  /// file of zeros would fill the memory and be read to its end.
  static constexpr std::size_t kMostChunks = 16384;

  bool isValidFile = false;       ///< RIFF/WAVE with a format and a data chunk, and not too many
  bool hasTooManyChunks = false;  ///< the walk was given up after `kMostChunks`
  bool lacksLongSizes = false;    ///< RF64 or BW64 without a "ds64" chunk in its place; not walked
  std::uint64_t encoding = 0;     ///< AudioFormat of the last format chunk
  std::vector<ChunkInfo> chunks;
  WaveHeader header;

  /// Indexes an image, whatever its content; one of fewer than 48 bytes is not looked at. Header
  /// fields that the image does not set keep their values. Only the bytes that are needed are
  /// fetched, which waits for the medium.
  void parse(const WaveImage& image);

  /// The first chunk with this four-character identifier, or none.
  [[nodiscard]] std::optional<ChunkInfo> find(std::string_view identifier) const;

  /// Why `isValidFile` is false, as a phrase for people; empty when it is true.
  [[nodiscard]] std::string_view whyInvalid(std::uint64_t imageSize) const;
};
