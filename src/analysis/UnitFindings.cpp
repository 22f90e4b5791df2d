// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/UnitFindings.h"

#include "analysis/WidthGrid.h"

UnitFindings::UnitFindings(const TakeLayout& layout, std::size_t unit)
    : blocks(layout.blocksOf(unit)),
      keys(layout.binsOf(unit) * BinKeys::planes(layout.isRawMidSide()), UpperKey::kNothing),
      peakKeys(layout.isRawMidSide() ? blocks.size() * WidthGrid::kPeakNodes.size() : 0,
               UpperKey::kNothing) {}

BinKeys UnitFindings::binKeys() const {
  const bool isRawMidSide = !peakKeys.empty();
  return {keys, keys.size() / BinKeys::planes(isRawMidSide), peakKeys, blocks.size(),
          TakeLayout::kBinsPerBlock};
}

std::size_t UnitFindings::memory() const {
  return sizeof *this + blocks.capacity() * sizeof(BlockSums) +
         (keys.capacity() + peakKeys.capacity()) * sizeof(UpperKey::Key);
}
