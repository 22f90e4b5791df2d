// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "analysis/PeakEnvelope.h"
#include "analysis/TakeLayout.h"
#include "analysis/UnitFindings.h"
#include "analysis/UnitResult.h"
#include "wav/FileState.h"

/// What one pass over a take found, as it stands: all of it, or the units read so far. Copies share
/// the units, which do not change once they are there: a look at a long take costs next to nothing.
struct TakeFindings {
  using Unit = std::shared_ptr<const UnitFindings>;

  TakeFindings() = default;
  explicit TakeFindings(const TakeLayout& layout);

  /// Puts the result of a unit in its place.
  void add(UnitResult&& unit);
  /// Puts its waveform there alone, where nothing is yet.
  void addWaveform(UnitResult&& unit);
  /// The K-weighted sums of both halves of each whole block, in order.
  [[nodiscard]] std::vector<BlockSums::Weighted> weightedHalves() const;
  /// Bytes that are held, most of them together with copies.
  [[nodiscard]] std::size_t memory() const;

  /// Calls `visit(unit, from, to)` for each unit that is known and holds any of the items
  /// [first, end), of which a unit has so many; its own of them are [from, to).
  template <class Visit>
  void visitUnits(std::size_t first, std::size_t end, std::size_t itemsPerUnit,
                  const Visit& visit) const {
    while (first < end) {
      const std::size_t unit = first / itemsPerUnit;
      const std::size_t begin = unit * itemsPerUnit;
      const std::size_t last = std::min(end, begin + itemsPerUnit);
      if (units[unit]) visit(*units[unit], first - begin, last - begin);
      first = last;
    }
  }

  /// Whether the same was found, wherever it was read.
  friend bool operator==(const TakeFindings& a, const TakeFindings& b);

  FileState file;                ///< that was read
  std::uint64_t firstFrame = 0;  ///< of the file, from which frames count here
  TakeLayout layout;
  std::vector<Unit> units;  ///< null where nothing has been read; some with their waveform alone
  PeakEnvelope samplePeaks;
  PeakEnvelope truePeaks;
  std::size_t unitsKnown = 0;  ///< altogether
  std::size_t unitsDrawn = 0;  ///< whose waveform alone came first, known altogether by now or not
};
