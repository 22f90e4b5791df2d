// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/TakeFindings.h"

#include <span>
#include <utility>

TakeFindings::TakeFindings(const TakeLayout& takeLayout)
    : layout(takeLayout),
      units(takeLayout.units()),
      samplePeaks(takeLayout.isRawMidSide()),
      truePeaks(takeLayout.isRawMidSide()) {}

void TakeFindings::add(UnitResult&& unit) {
  units[unit.unit] = std::make_shared<const UnitFindings>(std::move(unit.found));
  samplePeaks.merge(unit.samplePeaks);
  truePeaks.merge(unit.truePeaks);
  ++unitsKnown;
}

void TakeFindings::addWaveform(UnitResult&& unit) {
  if (units[unit.unit]) return;
  units[unit.unit] = std::make_shared<const UnitFindings>(std::move(unit.found));
  ++unitsDrawn;
}

std::vector<BlockSums::Weighted> TakeFindings::weightedHalves() const {
  std::vector<BlockSums::Weighted> halves(2 * layout.wholeBlocks());
  for (std::size_t i = 0; i < units.size(); ++i) {
    if (!units[i]) continue;
    const std::size_t first = i * layout.blocksPerUnit();
    const std::size_t count = std::min(units[i]->blocks.size(), layout.wholeBlocks() - first);
    auto place = halves.begin() + static_cast<std::ptrdiff_t>(2 * first);
    for (const BlockSums& block : std::span(units[i]->blocks).first(count)) {
      place = std::ranges::copy(block.weighted, place).out;
    }
  }
  return halves;
}

std::size_t TakeFindings::memory() const {
  std::size_t all = units.capacity() * sizeof(Unit);
  for (const Unit& unit : units) {
    if (unit) all += unit->memory();
  }
  return all;
}

bool operator==(const TakeFindings& a, const TakeFindings& b) {
  const auto areSame = [](const TakeFindings::Unit& one, const TakeFindings::Unit& other) {
    return one && other ? *one == *other : one == other;
  };
  return std::ranges::equal(a.units, b.units, areSame) && a.samplePeaks == b.samplePeaks &&
         a.truePeaks == b.truePeaks;
}
