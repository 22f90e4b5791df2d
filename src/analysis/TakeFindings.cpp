// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/TakeFindings.h"

#include <algorithm>
#include <span>

#include "analysis/WidthGrid.h"

namespace {

using Keys = std::vector<UpperKey::Key>;

// Each plane of the part to its place in the same plane of the whole.
void put(const Keys& part, std::size_t first, std::size_t planes, Keys& whole) {
  if (part.empty()) return;  // what has no such keys has no place for them either
  const std::size_t count = part.size() / planes;
  const std::size_t length = whole.size() / planes;
  for (std::size_t plane = 0; plane < planes; ++plane) {
    std::ranges::copy(std::span(part).subspan(plane * count, count),
                      whole.begin() + static_cast<std::ptrdiff_t>(plane * length + first));
  }
}

}  // namespace

TakeFindings::TakeFindings(const TakeLayout& takeLayout)
    : layout(takeLayout),
      blocks(takeLayout.blocks()),
      keys(takeLayout.bins() * BinKeys::planes(takeLayout.isRawMidSide()), UpperKey::kNothing),
      peakKeys(takeLayout.isRawMidSide() ? takeLayout.blocks() * WidthGrid::kPeakNodes.size() : 0,
               UpperKey::kNothing),
      samplePeaks(takeLayout.isRawMidSide()),
      truePeaks(takeLayout.isRawMidSide()) {}

void TakeFindings::add(const UnitResult& unit) {
  const std::size_t firstBlock = unit.unit * layout.blocksPerUnit();
  std::ranges::copy(unit.blocks, blocks.begin() + static_cast<std::ptrdiff_t>(firstBlock));
  put(unit.keys, firstBlock * TakeLayout::kBinsPerBlock, BinKeys::planes(layout.isRawMidSide()),
      keys);
  put(unit.peakKeys, firstBlock, WidthGrid::kPeakNodes.size(), peakKeys);
  samplePeaks.merge(unit.samplePeaks);
  truePeaks.merge(unit.truePeaks);
  ++unitsKnown;
}

BinKeys TakeFindings::binKeys() const {
  return {keys,
          layout.bins(),
          peakKeys,
          layout.blocks(),
          TakeLayout::kBinsPerBlock,
          layout.isRawMidSide()};
}
