// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/TakeFindings.h"

#include <algorithm>

TakeFindings::TakeFindings(const TakeLayout& takeLayout)
    : layout(takeLayout),
      blocks(takeLayout.blocks()),
      keys(takeLayout.bins() * (takeLayout.isRawMidSide() ? PeakEnvelope::kRawExtremes
                                                          : PeakEnvelope::kPlainExtremes),
           UpperKey::kNothing),
      samplePeaks(takeLayout.isRawMidSide()),
      truePeaks(takeLayout.isRawMidSide()) {}

void TakeFindings::add(const UnitResult& unit) {
  const std::size_t firstBlock = unit.unit * layout.blocksPerUnit();
  std::ranges::copy(unit.blocks, blocks.begin() + static_cast<std::ptrdiff_t>(firstBlock));
  const std::size_t planes = keys.size() / layout.bins();
  const std::size_t unitBins = unit.keys.size() / planes;
  const std::size_t firstBin = firstBlock * TakeLayout::kBinsPerBlock;
  for (std::size_t plane = 0; plane < planes; ++plane) {
    std::copy_n(unit.keys.begin() + static_cast<std::ptrdiff_t>(plane * unitBins), unitBins,
                keys.begin() + static_cast<std::ptrdiff_t>(plane * layout.bins() + firstBin));
  }
  samplePeaks.merge(unit.samplePeaks);
  truePeaks.merge(unit.truePeaks);
  ++unitsKnown;
}
