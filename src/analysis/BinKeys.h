// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <span>

#include "analysis/UpperKey.h"

/// The keys of bins that follow each other: what a waveform is made of at any width. Lives no
/// longer than the keys.
///
/// Of each bin the greatest and the least of Left and of Right, the least as its negative, at one
/// node of extremes after the other; at the first node, where both channels are Mid, only one pair.
/// Of each block, which is one bin or several, the peak of both channels at one node of peaks after
/// the other. Takes that are not raw Mid/Side have one node of extremes and no peaks.
struct BinKeys {
  std::span<const UpperKey::Key> keys;  ///< plane after plane
  std::size_t bins;
  std::span<const UpperKey::Key> peakKeys;  ///< node after node
  std::size_t blocks;
  std::size_t binsPerBlock;

  /// How many keys a bin has.
  static std::size_t planes(bool isRawMidSide);
  /// Puts the keys of a bin in their places; `extremes` as `AnalysisKernels::raiseExtremes` makes
  /// them with the gains of the nodes but the first, or with none.
  static void store(std::span<const float> extremes, bool isRawMidSide, std::size_t bin,
                    std::span<UpperKey::Key> keys);
  /// The same of a block and its peaks.
  static void storePeaks(std::span<const float> peaks, std::size_t block,
                         std::span<UpperKey::Key> keys);
};
