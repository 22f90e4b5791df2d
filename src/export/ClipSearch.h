// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

#include "analysis/TakeAnalysis.h"
#include "export/Clipping.h"
#include "wav/WaveFileReader.h"

/// What an export in 24 bits would cut off, told beforehand: reads again only what an analysis does
/// not rule out. Stateless; any thread; waits for the medium.
class ClipSearch {
 public:
  /// Of the frames that were analysed, whose first one is `firstFrame` of the file, at a width in
  /// whole degrees and a gain in dB. None where reading failed or `*cancel` became true.
  static std::optional<Clipping> find(const WaveFileReader& reader, const TakeAnalysis& analysis,
                                      std::uint64_t firstFrame, int width, double gain,
                                      const std::atomic<bool>& cancel);
};
