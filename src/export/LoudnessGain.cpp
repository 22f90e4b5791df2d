// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "export/LoudnessGain.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMostSteps = 20;
constexpr double kCloseEnough = 1e-6;  // LU

}  // namespace

LoudnessGain::LoudnessGain(const TakeAnalysis& analysis, int width, const LoudnessTarget& target) {
  const TakeFigures plain = analysis.at(width, 0);
  if (!plain.integratedLufs || !plain.truePeakDbtp) return;
  double gain = target.lufs - *plain.integratedLufs;
  for (int step = 0; step < kMostSteps; ++step) {
    const auto loudness = analysis.at(width, gain).integratedLufs;
    if (!loudness || std::fabs(target.lufs - *loudness) < kCloseEnough) break;
    gain += target.lufs - *loudness;
  }
  const double most = target.truePeakDbtp - *plain.truePeakDbtp;
  _loweredBy = std::max(0.0, gain - most);
  _gain = std::min(gain, most);
  _lufs = analysis.at(width, *_gain).integratedLufs;
}
