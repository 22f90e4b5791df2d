// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

#include "analysis/TakeAnalysis.h"

/// The loudness that an export is to have, and the true peak that it must not pass for it.
struct LoudnessTarget {
  double lufs = -23;
  double truePeakDbtp = -1;

  friend bool operator==(const LoudnessTarget&, const LoudnessTarget&) = default;
};

/// The gain that brings a take to a loudness at a width, in dB. Immutable; safe on any thread.
class LoudnessGain {
 public:
  /// The gates of the loudness move with the gain, so it is looked for in a few steps.
  LoudnessGain(const TakeAnalysis& analysis, int width, const LoudnessTarget& target);

  /// None where the take has no loudness: it is silent, too short, or under the gate.
  [[nodiscard]] std::optional<double> gain() const { return _gain; }
  /// By how many dB the true peak keeps the gain down; 0 where it does not.
  [[nodiscard]] double loweredBy() const { return _loweredBy; }
  /// The loudness that the gain brings the take to. The gates let a few takes jump past the one
  /// that was asked for, or leave none where the gain is kept far down.
  [[nodiscard]] std::optional<double> lufs() const { return _lufs; }

 private:
  std::optional<double> _gain;
  double _loweredBy = 0;
  std::optional<double> _lufs;
};
