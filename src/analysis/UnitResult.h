// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/BlockSums.h"
#include "analysis/PeakEnvelope.h"
#include "analysis/UpperKey.h"

/// What the pass found in one unit of a take.
struct UnitResult {
  std::size_t unit = 0;
  std::vector<BlockSums> blocks;
  std::vector<UpperKey::Key> keys;      ///< of its bins, as `BinKeys` has them
  std::vector<UpperKey::Key> peakKeys;  ///< of its blocks
  PeakEnvelope samplePeaks;             ///< of this unit and of all that was known before
  PeakEnvelope truePeaks;
};
