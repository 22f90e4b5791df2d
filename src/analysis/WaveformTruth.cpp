// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/WaveformTruth.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "analysis/Extremes.h"
#include "dsp/AnalysisKernels.h"
#include "dsp/Kernels.h"
#include "dsp/PlainAnalysisKernels.h"
#include "dsp/SideGain.h"

namespace {

constexpr std::size_t kBlockFrames = 4096;

bool isOverFullScale(const Waveform::Column& column) {
  return column.greatestLeft > 1.0F || column.leastLeft < -1.0F || column.greatestRight > 1.0F ||
         column.leastRight < -1.0F;
}

}  // namespace

WaveformTruth::WaveformTruth(const WaveFileReader& reader, std::uint64_t firstFrame, int width,
                             double gain)
    : _stream(reader),
      _frames(_stream.framesLeft()),
      _firstFrame(firstFrame),
      _isRawMidSide(reader.isBoMSFormat()),
      _sideGain(SideGain::factor(width)),
      _gain(static_cast<float>(std::pow(10.0, gain / 20.0))),
      _block(2 * kBlockFrames) {}

bool WaveformTruth::settle(Waveform& waveform, const std::atomic<bool>* cancel) {
  for (std::size_t i = 0; i < waveform.columns.size(); ++i) {
    if (cancel != nullptr && *cancel) return false;
    if (!waveform.columns[i].mayClip) continue;
    const std::uint64_t from = waveform.columnStart(i);
    const std::uint64_t to = std::max(from + 1, waveform.columnStart(i + 1));
    if (!read(_firstFrame + from, _firstFrame + to, waveform.columns[i])) return false;
  }
  return true;
}

bool WaveformTruth::read(std::uint64_t from, std::uint64_t to, Waveform::Column& column) {
  constexpr float kFar = Extremes::kFar;
  Waveform::Column truth{kFar, -kFar, kFar, -kFar, true, false};
  goTo(from);
  while (from < to) {
    const std::uint64_t wanted = std::min<std::uint64_t>(to - from, kBlockFrames);
    if (_stream.read(std::span(_block).first(2 * wanted)) != wanted) return false;
    widen(wanted, truth);
    from += wanted;
  }
  truth.mayClip = isOverFullScale(truth);
  column = truth;
  return true;
}

// Going on where the last column ended keeps what is at hand.
void WaveformTruth::goTo(std::uint64_t frame) {
  if (_frames - _stream.framesLeft() != frame) _stream.seek(frame);
}

void WaveformTruth::widen(std::uint64_t frames, Waveform::Column& column) {
  const std::span<float> block = std::span(_block).first(2 * frames);
  if (_isRawMidSide) Kernels::decodeMidSide(block, _sideGain);
  std::array<float, 4> extremes{};
  Extremes::makeEmpty(extremes);
  if (AnalysisKernels::areFinite(block)) {
    AnalysisKernels::raiseExtremes(block, {}, extremes);
  } else {
    PlainAnalysisKernels::raiseExtremes(block, {}, extremes);
  }
  column.greatestLeft = std::max(column.greatestLeft, extremes[0] * _gain);
  column.leastLeft = std::min(column.leastLeft, extremes[1] * _gain);
  column.greatestRight = std::max(column.greatestRight, extremes[2] * _gain);
  column.leastRight = std::min(column.leastRight, extremes[3] * _gain);
}
