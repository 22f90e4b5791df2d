// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "analysis/BinKeys.h"
#include "analysis/BlockSums.h"
#include "analysis/TakeLayout.h"
#include "analysis/UpperKey.h"

/// What was found in one unit of a take, and belongs to its place in it.
struct UnitFindings {
  UnitFindings() = default;
  /// Of a unit of this layout, with room for all of it, and nothing known.
  UnitFindings(const TakeLayout& layout, std::size_t unit);

  [[nodiscard]] BinKeys binKeys() const;
  /// Bytes that are held.
  [[nodiscard]] std::size_t memory() const;

  friend bool operator==(const UnitFindings&, const UnitFindings&) = default;

  std::vector<BlockSums> blocks;
  std::vector<UpperKey::Key> keys;      ///< of its bins, as `BinKeys` has them
  std::vector<UpperKey::Key> peakKeys;  ///< of its blocks, the same
};
