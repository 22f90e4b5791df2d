// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

/// The least and the greatest of Left and of Right in each column of a picture, with the gain.
struct Waveform {
  struct Column {
    float leastLeft = 0;
    float greatestLeft = 0;
    float leastRight = 0;
    float greatestRight = 0;
    bool isKnown = false;  ///< whether anything in the column has been read
    bool mayClip = false;  ///< whether it may pass full scale
  };

  std::vector<Column> columns;
  /// Frames of the take that the columns share evenly.
  std::uint64_t from = 0;
  std::uint64_t to = 0;

  /// The first frame of a column; of the column after the last one `to`.
  [[nodiscard]] std::uint64_t columnStart(std::size_t column) const {
    const std::uint64_t count = columns.size();
    const std::uint64_t length = to - from;  // in two steps: the product may be too large
    return from + length / count * column + length % count * column / count;
  }
};
