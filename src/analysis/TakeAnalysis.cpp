// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/TakeAnalysis.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "dsp/Oversampling.h"

namespace {

// A channel more than 130 dB under the other one is what the sums were rounded by, or silence.
constexpr double kSilent = 1e-13;

double powerGain(double gain) {
  return std::pow(10.0, gain / 10.0);
}

std::optional<double> decibels(double peak, double gain) {
  if (!(peak > 0) || !std::isfinite(peak)) return std::nullopt;
  return 20.0 * std::log10(peak) + gain;
}

}  // namespace

TakeAnalysis::TakeAnalysis(TakeFindings findings) : _findings(std::move(findings)) {
  if (!layout().hasLoudness()) return;
  _loudness = Loudness(_findings.weightedHalves(), layout().blockFrames());
}

bool TakeAnalysis::isComplete() const {
  return _findings.unitsKnown == layout().units();
}

bool TakeAnalysis::isOf(const WaveFileReader& reader, std::uint64_t firstFrame,
                        std::uint64_t frames) const {
  return _findings.file == reader.fileState() && _findings.firstFrame == firstFrame &&
         layout().frames() == frames && layout().sampleRate() == reader.header().SampleRate &&
         layout().isRawMidSide() == reader.isBoMSFormat();
}

ChannelMix TakeAnalysis::mixAt(int width) const {
  return {layout().isRawMidSide(), static_cast<double>(SideGain::factor(width))};
}

TakeFigures TakeAnalysis::at(int width, double gain) const {
  TakeFigures figures;
  const Blocks blocks{0, layout().blocks()};
  addLoudness(figures, width, gain, blocks);
  addCorrelation(figures, width, blocks);
  addPeaks(figures, width, gain);
  return figures;
}

TakeFigures TakeAnalysis::peaksAt(int width, double gain) const {
  TakeFigures figures;
  addPeaks(figures, width, gain);
  return figures;
}

TakeFigures TakeAnalysis::at(int width, double gain, std::uint64_t from, std::uint64_t to) const {
  to = std::min(to, layout().frames());
  from = std::min(from, to);
  if (from == 0 && to == layout().frames()) return at(width, gain);
  TakeFigures figures;
  addLoudness(figures, width, gain, blocksOf(from, to));
  addCorrelation(figures, width, blocksOf(from, to));
  addBounds(figures, width, gain, from, to);
  return figures;
}

TakeAnalysis::Blocks TakeAnalysis::blocksOf(std::uint64_t from, std::uint64_t to) const {
  const std::uint64_t block = layout().blockFrames();
  const std::size_t first = (from + block / 2) / block;
  const std::size_t end = to == layout().frames() ? layout().blocks() : (to + block / 2) / block;
  return {first, std::max(first, end)};
}

void TakeAnalysis::addLoudness(TakeFigures& figures, int width, double gain,
                               const Blocks& blocks) const {
  const Loudness::Figures found =
      _loudness.measure(mixAt(width), powerGain(gain), blocks.first, blocks.end);
  figures.integratedLufs = found.integrated;
  figures.rangeLu = found.range;
  figures.momentaryMaxLufs = found.momentaryMax;
  figures.shortTermMaxLufs = found.shortTermMax;
}

void TakeAnalysis::addCorrelation(TakeFigures& figures, int width, const Blocks& blocks) const {
  BlockSums sum;
  sum.first = sum.second = sum.product = 0;
  const auto add = [&sum](const UnitFindings& unit, std::size_t from, std::size_t to) {
    for (const BlockSums& block : std::span(unit.blocks).subspan(from, to - from)) {
      if (std::isnan(block.first)) continue;
      sum.first += block.first;
      sum.second += block.second;
      sum.product += block.product;
    }
  };
  _findings.visitUnits(blocks.first, blocks.end, layout().blocksPerUnit(), add);
  const ChannelMix mix = mixAt(width);
  const double k = mix.sideGain;
  const bool isRaw = mix.isRawMidSide;
  const double left = isRaw ? sum.first + 2 * k * sum.product + k * k * sum.second : sum.first;
  const double right = isRaw ? sum.first - 2 * k * sum.product + k * k * sum.second : sum.second;
  const double both = isRaw ? sum.first - k * k * sum.second : sum.product;
  if (!(left > kSilent * right) || !(right > kSilent * left)) return;
  const double root = std::sqrt(left) * std::sqrt(right);
  figures.correlation = std::clamp(both / root, -1.0, 1.0);
  figures.balanceDb = 10.0 * std::log10(left / right);
}

bool TakeAnalysis::hasTruePeak() const {
  return layout().hasLoudness();
}

float TakeAnalysis::samplePeak(int width) const {
  return std::max(_findings.samplePeaks.left(width), _findings.samplePeaks.right(width));
}

void TakeAnalysis::addPeaks(TakeFigures& figures, int width, double gain) const {
  const double factor = std::sqrt(powerGain(gain));
  figures.peakLeft = static_cast<double>(_findings.samplePeaks.left(width)) * factor;
  figures.peakRight = static_cast<double>(_findings.samplePeaks.right(width)) * factor;
  figures.samplePeakDbfs = decibels(static_cast<double>(samplePeak(width)), gain);
  if (!hasTruePeak()) return;
  const float peak = std::max(_findings.truePeaks.left(width), _findings.truePeaks.right(width));
  figures.truePeakDbtp = decibels(static_cast<double>(peak), gain);
}

// Between the samples of the stretch no value is greater than the filter makes of its own bins, and
// none than that of the whole take, which is all that is known where no bins are kept.
void TakeAnalysis::addBounds(TakeFigures& figures, int width, double gain, std::uint64_t from,
                             std::uint64_t to) const {
  addPeaks(figures, width, gain);
  figures.arePeaksBounds = true;
  Waveform::Column column;
  if (from < to) column = columnOf(WaveformBins(layout().isRawMidSide(), width, 0), from, to);
  if (from < to && !column.isKnown && isComplete()) return;
  const auto greatest = [](float a, float b) { return static_cast<double>(std::max(a, -b)); };
  const double factor = std::sqrt(powerGain(gain));
  const double left = greatest(column.greatestLeft, column.leastLeft);
  const double right = greatest(column.greatestRight, column.leastRight);
  figures.peakLeft = std::min(figures.peakLeft, left * factor);
  figures.peakRight = std::min(figures.peakRight, right * factor);
  const double most = std::max(left, right);
  const auto lower = [](std::optional<double>& figure, std::optional<double> bound) {
    figure = figure && bound ? std::optional(std::min(*figure, *bound)) : std::nullopt;
  };
  lower(figures.samplePeakDbfs, decibels(most, gain));
  lower(figures.truePeakDbtp,
        decibels(most * static_cast<double>(Oversampling::greatestGain()), gain));
}

std::optional<double> TakeAnalysis::momentaryLufs(int width, double gain,
                                                  std::uint64_t frame) const {
  const std::uint64_t end = frame / layout().blockFrames() + 1;
  if (end < Loudness::kMomentaryBlocks) return std::nullopt;
  return _loudness.momentary(mixAt(width), powerGain(gain), end - Loudness::kMomentaryBlocks);
}

std::optional<double> TakeAnalysis::shortTermLufs(int width, double gain,
                                                  std::uint64_t frame) const {
  const std::uint64_t end = frame / layout().blockFrames() + 1;
  if (end < Loudness::kShortTermBlocks) return std::nullopt;
  return _loudness.shortTerm(mixAt(width), powerGain(gain), end - Loudness::kShortTermBlocks);
}

// Of the bins that frames [from, to) touch, at least one frame.
Waveform::Column TakeAnalysis::columnOf(const WaveformBins& bins, std::uint64_t from,
                                        std::uint64_t to) const {
  WaveformBins::Greatest greatest;
  const std::size_t binsPerUnit = layout().blocksPerUnit() * TakeLayout::kBinsPerBlock;
  _findings.visitUnits(layout().binOf(from), layout().binOf(to - 1) + 1, binsPerUnit,
                       [&](const UnitFindings& unit, std::size_t first, std::size_t end) {
                         bins.raise(greatest, unit.binKeys(), first, end);
                       });
  return bins.column(greatest);
}

Waveform TakeAnalysis::waveform(int width, double gain, std::uint64_t from, std::uint64_t to,
                                std::size_t columns) const {
  Waveform waveform;
  waveform.to = std::min(to, layout().frames());
  waveform.from = std::min(from, waveform.to);
  waveform.columns.resize(columns);
  if (waveform.from == waveform.to) return waveform;
  const WaveformBins bins(layout().isRawMidSide(), width, gain);
  for (std::size_t i = 0; i < columns; ++i) {
    const std::uint64_t begin = waveform.columnStart(i);
    const std::uint64_t end = std::max(begin + 1, waveform.columnStart(i + 1));
    waveform.columns[i] = columnOf(bins, begin, end);
  }
  return waveform;
}

std::size_t TakeAnalysis::memory() const {
  return sizeof *this + _findings.memory() + _loudness.memory();
}
