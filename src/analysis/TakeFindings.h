// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

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

  TakeLayout layout;
  std::vector<BlockSums> blocks;
  std::vector<UpperKey::Key> keys;  ///< plane after plane, a key for each bin of the take
  PeakEnvelope samplePeaks;
  PeakEnvelope truePeaks;
  std::size_t unitsKnown = 0;
};
