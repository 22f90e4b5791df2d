// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <optional>

#include "analysis/TakeAnalysis.h"
#include "export/Clipping.h"
#include "export/FrameRange.h"
#include "wav/WaveFileReader.h"

/// What an export in 24 bits would cut off, told beforehand: reads again only what an analysis does
/// not rule out. Stateless; any thread; waits for the medium.
class ClipSearch {
 public:
  /// Of a range of the file, at a width in whole degrees and a gain in dB. `whole` is a complete
  /// analysis of the whole file; where nobody has one, all of the range is read. None where reading
  /// failed or `*cancel` became true.
  static std::optional<Clipping> find(const WaveFileReader& reader, const TakeAnalysis* whole,
                                      const FrameRange& range, int width, double gain,
                                      const std::atomic<bool>& cancel);
};
