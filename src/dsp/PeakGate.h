// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <span>

/// The line at each width that a frame has to pass to raise a peak; see
/// `AnalysisKernels::areUnder`.
struct PeakGate {
  std::span<const float> gains;
  std::span<const float> left;   ///< as many as gains
  std::span<const float> right;  ///< as many as gains
};
