// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "analysis/PeakEnvelope.h"
#include "analysis/UnitFindings.h"

/// What the pass found in one unit of a take.
struct UnitResult {
  std::size_t unit = 0;
  bool isWaveformAlone = false;  ///< the rest of it is still to come
  UnitFindings found;
  PeakEnvelope samplePeaks;  ///< of this unit and of all that was known before
  PeakEnvelope truePeaks;
};
