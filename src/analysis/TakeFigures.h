// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

/// What a take, or a stretch of it, measures at one width and gain, as decoded and before a 24-bit
/// file clips it. A figure that does not exist is none: the loudness of silence, the peak of
/// nothing, the correlation with a channel that is silent.
struct TakeFigures {
  std::optional<double> integratedLufs;
  std::optional<double> rangeLu;
  std::optional<double> momentaryMaxLufs;
  std::optional<double> shortTermMaxLufs;
  std::optional<double> truePeakDbtp;
  std::optional<double> samplePeakDbfs;
  std::optional<double> correlation;  ///< -1 to 1
  std::optional<double> balanceDb;    ///< Left over Right

  /// Linear sample peaks with the gain; infinite where a sample is.
  double peakLeft = 0;
  double peakRight = 0;
  /// Whether the peaks are only known not to be greater: those of a stretch, until it has been
  /// analysed by itself.
  bool arePeaksBounds = false;

  /// Whether a 24-bit file clips. Where on the take, its waveform tells: `mayClip` of a column, and
  /// `WaveformTruth` for sure.
  [[nodiscard]] bool isOverFullScale() const { return peakLeft > 1.0 || peakRight > 1.0; }
};
