// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// What became of an order.
struct ExportResult {
  enum class End : std::uint8_t {
    Written,
    Cancelled,       ///< nothing was written
    TargetIsSource,  ///< refused before anything was written
    Failed           ///< nothing was written
  };

  End end = End::Failed;
  std::string failure;  ///< why, in words for people, no full stop; empty when written or cancelled
  /// When the file that was written was changed last, as it tells it itself; seconds since 1970, 0
  /// of another end, or where it has gone already.
  std::int64_t modified = 0;
  /// In dB, positive is louder: the one that was ordered, or that was found towards full scale or a
  /// loudness. None of another end, and of a silent take at full scale.
  std::optional<double> gain = std::nullopt;
};
