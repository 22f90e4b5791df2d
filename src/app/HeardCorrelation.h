// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>

/// The correlation of Left and Right over the last 0.3 s that were added. No allocation; any
/// thread, one at a time.
class HeardCorrelation {
 public:
  static constexpr double kSeconds = 0.3;

  /// Interleaved pairs that take so long. What is not finite counts as silence.
  void add(std::span<const float> frames, double seconds);
  void clear() { *this = HeardCorrelation(); }
  /// -1 to 1; none while a channel is silent.
  [[nodiscard]] std::optional<double> value() const;

 private:
  struct Piece {
    double left = 0;
    double right = 0;
    double product = 0;
    double seconds = 0;
  };
  static constexpr std::size_t kMostPieces = 64;

  std::array<Piece, kMostPieces> _pieces{};  ///< a ring
  std::size_t _newest = 0;
};
