// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/HeardCorrelation.h"

#include <algorithm>
#include <cmath>

namespace {

// A channel more than 130 dB under the other one counts as silent, as in the analysis.
constexpr double kSilent = 1e-13;

double finite(float sample) {
  return std::isfinite(sample) ? static_cast<double>(sample) : 0.0;
}

}  // namespace

void HeardCorrelation::add(std::span<const float> frames, double seconds) {
  _newest = (_newest + 1) % kMostPieces;
  Piece piece;
  piece.seconds = seconds;
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    const double left = finite(frames[i]);
    const double right = finite(frames[i + 1]);
    piece.left += left * left;
    piece.right += right * right;
    piece.product += left * right;
  }
  _pieces[_newest] = piece;
}

// From the newest piece back, for as long as the window is; the last one may reach beyond it.
std::optional<double> HeardCorrelation::value() const {
  Piece sum;
  for (std::size_t i = 0; i < kMostPieces && sum.seconds < kSeconds; ++i) {
    const Piece& piece = _pieces[(_newest + kMostPieces - i) % kMostPieces];
    sum.left += piece.left;
    sum.right += piece.right;
    sum.product += piece.product;
    sum.seconds += piece.seconds;
  }
  if (!(sum.left > kSilent * sum.right) || !(sum.right > kSilent * sum.left)) return std::nullopt;
  return std::clamp(sum.product / (std::sqrt(sum.left) * std::sqrt(sum.right)), -1.0, 1.0);
}
