// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/BinKeys.h"

#include "analysis/PeakEnvelope.h"

std::size_t BinKeys::planes(bool isRawMidSide) {
  return isRawMidSide ? PeakEnvelope::kRawExtremes - 2 : PeakEnvelope::kPlainExtremes;
}

// At the first node of raw Mid/Side the extremes of the second channel, Side, do not count.
void BinKeys::store(std::span<const float> extremes, bool isRawMidSide, std::size_t bin,
                    std::span<UpperKey::Key> keys) {
  const std::size_t count = planes(isRawMidSide);
  const std::size_t bins = keys.size() / count;
  for (std::size_t plane = 0; plane < count; ++plane) {
    const std::size_t at = plane < 2 ? plane : plane + extremes.size() - count;
    const float value = at % 2 == 0 ? extremes[at] : -extremes[at];
    keys[plane * bins + bin] = UpperKey::of(value);
  }
}

void BinKeys::storePeaks(std::span<const float> peaks, std::size_t block,
                         std::span<UpperKey::Key> keys) {
  const std::size_t blocks = keys.size() / peaks.size();
  for (std::size_t node = 0; node < peaks.size(); ++node) {
    keys[node * blocks + block] = UpperKey::of(peaks[node]);
  }
}
