// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/BinKeys.h"
#include "analysis/BlockSums.h"
#include "analysis/PeakEnvelope.h"
#include "analysis/TakeLayout.h"
#include "analysis/UnitResult.h"
#include "analysis/UpperKey.h"

/// What one pass over a take found, as it stands: all of it, or the units read so far.
struct TakeFindings {
  TakeFindings() = default;
  explicit TakeFindings(const TakeLayout& layout);

  /// Puts the result of a unit in its place.
  void add(const UnitResult& unit);
  [[nodiscard]] BinKeys binKeys() const;

  TakeLayout layout;
  std::vector<BlockSums> blocks;
  std::vector<UpperKey::Key> keys;      ///< as `BinKeys` has them
  std::vector<UpperKey::Key> peakKeys;  ///< the same
  PeakEnvelope samplePeaks;
  PeakEnvelope truePeaks;
  std::size_t unitsKnown = 0;
};
