// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/UnitPass.h"

#include <algorithm>
#include <cmath>

#include "analysis/BinKeys.h"
#include "analysis/Extremes.h"
#include "analysis/WidthGrid.h"
#include "dsp/AnalysisKernels.h"
#include "dsp/Oversampling.h"
#include "dsp/PlainAnalysisKernels.h"

namespace {

constexpr std::size_t kMostPieceFrames = 256;
constexpr std::size_t kMostReadFrames = 1 << 15;
constexpr std::size_t kPartFrames = 32;  // of a piece, for the values between samples
constexpr std::size_t kReach = std::max(Oversampling::kBefore, Oversampling::kAfter);
using Values = PeakEnvelope::Values;

std::span<const float> nodeGainsOf(const TakeLayout& layout) {
  if (!layout.isRawMidSide()) return {};
  return WidthGrid::nodeGains().subspan(1);
}

void widen(std::span<float> extremes, std::span<const float> by) {
  for (std::size_t i = 0; i < extremes.size(); i += 2) {
    extremes[i] = std::max(extremes[i], by[i]);
    extremes[i + 1] = std::min(extremes[i + 1], by[i + 1]);
  }
}

}  // namespace

UnitPass::UnitPass(const WaveFileReader& reader, const TakeLayout& layout, std::uint64_t firstFrame,
                   const std::atomic<bool>* cancel)
    : _layout(layout),
      _firstFrame(firstFrame),
      _extremes(layout.isRawMidSide() ? PeakEnvelope::kRawExtremes : PeakEnvelope::kPlainExtremes),
      _mayBeInfinite(reader.encoding() == kFormatFloat),
      _cancel(cancel),
      _stream(reader),
      _between(2 * kPartFrames) {
  if (layout.hasLoudness()) _weighting = KWeighting::forRate(layout.sampleRate());
}

std::uint64_t UnitPass::memory(const TakeLayout& layout) {
  constexpr std::uint64_t kSmall = 1U << 19;  // what the stream holds, and what is found
  const std::uint64_t pieces = layout.framesPerUnit() / kMostPieceFrames * sizeof(Piece);
  return (layout.framesPerUnit() + layout.blockFrames()) * 2 * sizeof(float) + pieces + kSmall;
}

std::span<float> UnitPass::frames(std::size_t begin, std::size_t end) {
  return std::span(_buffer).subspan(2 * begin, 2 * (end - begin));
}

void UnitPass::run(UnitResult& result) {
  findExtremes(result);
  findLoudest();
  raiseSamplePeaks(result.samplePeaks);
  makeFinite();
  result.truePeaks.merge(result.samplePeaks);
  raiseTruePeaks(result.truePeaks);
  weigh(result);
}

void UnitPass::runWaveform(UnitResult& result) {
  findExtremes(result);
  result.found.blocks.assign(_layout.blocksOf(result.unit), BlockSums());
}

// For any unit at once: what grows is there twice meanwhile, and then larger than it has to be.
void UnitPass::makeRoom() {
  const std::size_t lead = _layout.blockFrames();
  const std::size_t blocks = std::min(_layout.blocksPerUnit(), _layout.blocks());
  const std::size_t bins = TakeLayout::kBinsPerBlock * blocks;
  _buffer.reserve(2 * (lead + blocks * lead + kReach));
  _pieces.reserve(blocks * lead / kMostPieceFrames + bins + 2);
}

// Outside the take there is silence.
bool UnitPass::fill(std::size_t unit) {
  const std::size_t lead = _layout.blockFrames();
  const std::uint64_t begin = std::uint64_t{unit} * _layout.framesPerUnit();
  const std::uint64_t from = begin < lead ? 0 : begin - lead;
  const std::uint64_t end = std::min(begin + _layout.framesPerUnit(), _layout.frames());
  const std::uint64_t to = std::min(end + kReach, _layout.frames());
  _unitFrames = end - begin;
  const std::size_t blocks = (_unitFrames + lead - 1) / lead;
  makeRoom();
  _buffer.resize(2 * (lead + blocks * lead + kReach));
  const std::size_t skipped = lead - (begin - from);
  const std::size_t count = to - from;
  std::ranges::fill(frames(0, skipped), 0.0F);
  std::ranges::fill(frames(skipped + count, _buffer.size() / 2), 0.0F);
  _stream.seek(_firstFrame + from);
  if (!read(skipped, skipped + count)) return false;
  _isFinite = !_mayBeInfinite || AnalysisKernels::areFinite(_buffer);
  return true;
}

// In parts, so that a cancel does not wait for a slow medium.
bool UnitPass::read(std::size_t begin, std::size_t end) {
  while (begin < end) {
    const std::size_t part = std::min(end, begin + kMostReadFrames);
    if (*_cancel || _stream.read(frames(begin, part)) != part - begin) return false;
    begin = part;
  }
  return true;
}

void UnitPass::findExtremes(UnitResult& result) {
  const std::size_t lead = _layout.blockFrames();
  const std::uint64_t start = std::uint64_t{result.unit} * _layout.framesPerUnit();
  const std::size_t firstBin = _layout.binOf(start);
  const std::size_t bins = _layout.binOf(start + _unitFrames - 1) + 1 - firstBin;
  const std::size_t blocks = (_unitFrames + lead - 1) / lead;
  result.found.keys.assign(bins * BinKeys::planes(_layout.isRawMidSide()), UpperKey::kNothing);
  result.found.peakKeys.assign(_layout.isRawMidSide() ? blocks * _peakLine.size() : 0, 0);
  _pieces.clear();
  addPiece(lead - kReach, lead);
  for (std::size_t bin = 0; bin < bins; ++bin) {
    const std::size_t firstPiece = _pieces.size();
    if (bin % TakeLayout::kBinsPerBlock == 0) _peakLine.fill(0.0F);
    addBin(lead + _layout.binStart(firstBin + bin) - start,
           lead + _layout.binStart(firstBin + bin + 1) - start);
    storeKeys(result, bin, firstPiece);
    if (result.found.peakKeys.empty()) continue;
    BinKeys::storePeaks(_peakLine, bin / TakeLayout::kBinsPerBlock, result.found.peakKeys);
  }
  addPiece(lead + _unitFrames, lead + _unitFrames + kReach);
}

// Into pieces of nearly the same length, so that each is long enough to reach over.
void UnitPass::addBin(std::size_t begin, std::size_t end) {
  const std::size_t count = (end - begin + kMostPieceFrames - 1) / kMostPieceFrames;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t from = begin + (end - begin) * i / count;
    const std::size_t to = begin + (end - begin) * (i + 1) / count;
    addPiece(from, to);
    raisePeakLine(frames(from, to));
  }
}

void UnitPass::addPiece(std::size_t begin, std::size_t end) {
  Piece& piece = _pieces.emplace_back(Piece{begin, end, {}});
  Extremes::makeEmpty(piece.extremes);
  const std::span extremes = std::span(piece.extremes).first(_extremes);
  if (_isFinite) {
    AnalysisKernels::raiseExtremes(frames(begin, end), nodeGainsOf(_layout), extremes);
  } else {
    PlainAnalysisKernels::raiseExtremes(frames(begin, end), nodeGainsOf(_layout), extremes);
  }
}

void UnitPass::raisePeakLine(std::span<const float> frames) {
  if (!_layout.isRawMidSide()) return;
  if (_isFinite) {
    AnalysisKernels::raiseMagnitudes(frames, WidthGrid::peakNodeGains(), _peakLine);
  } else {
    PlainAnalysisKernels::raiseMagnitudes(frames, WidthGrid::peakNodeGains(), _peakLine);
  }
}

void UnitPass::storeKeys(UnitResult& result, std::size_t bin, std::size_t firstPiece) {
  auto extremes = _pieces[firstPiece].extremes;
  for (std::size_t i = firstPiece + 1; i < _pieces.size(); ++i) {
    widen(extremes, _pieces[i].extremes);
  }
  BinKeys::store(std::span(extremes).first(_extremes), _layout.isRawMidSide(), bin,
                 result.found.keys);
}

// The pieces with the greatest values: once these are known, most others are out.
void UnitPass::findLoudest() {
  _loudest.clear();
  for (std::size_t plane = 0; plane < _extremes; plane += 4) {
    const auto isLess = [plane](const Piece& a, const Piece& b) {
      return a.extremes[plane] < b.extremes[plane];
    };
    const auto found = std::max_element(_pieces.begin() + 1, _pieces.end() - 1, isLess);
    _loudest.push_back(static_cast<std::size_t>(found - _pieces.begin()));
  }
}

void UnitPass::raiseSamplePeaks(PeakEnvelope& peaks) {
  const auto raise = [&](const Piece& piece) {
    if (peaks.mayRaise(piece.extremes, Values::Samples))
      peaks.raise(frames(piece.begin, piece.end));
  };
  for (const std::size_t i : _loudest) raise(_pieces[i]);
  for (std::size_t i = 1; i + 1 < _pieces.size(); ++i) raise(_pieces[i]);
}

void UnitPass::makeFinite() {
  if (_isFinite) return;
  for (float& sample : _buffer) {
    if (!std::isfinite(sample)) sample = 0.0F;
  }
}

void UnitPass::raiseTruePeaks(PeakEnvelope& peaks) {
  if (!_layout.hasLoudness() || Oversampling::factor(_layout.sampleRate()) == 1) return;
  for (const std::size_t i : _loudest) raiseBetween(i, peaks);
  for (std::size_t i = 1; i + 1 < _pieces.size(); ++i) raiseBetween(i, peaks);
}

void UnitPass::raiseBetween(std::size_t piece, PeakEnvelope& peaks) {
  if (!peaks.mayRaise(around(piece), Values::Between)) return;
  const Piece& whole = _pieces[piece];
  for (std::size_t begin = whole.begin; begin < whole.end; begin += kPartFrames) {
    const std::size_t end = std::min(begin + kPartFrames, whole.end);
    const auto reach = frames(begin - Oversampling::kBefore, end + Oversampling::kAfter);
    if (peaks.framesMayRaise(reach, Values::Between)) raiseBetween(reach, peaks);
  }
}

void UnitPass::raiseBetween(std::span<const float> reach, PeakEnvelope& peaks) {
  const std::size_t floats = reach.size() - 2 * (Oversampling::kTaps - 1);
  for (const auto& taps : Oversampling::phases(Oversampling::factor(_layout.sampleRate()))) {
    const std::span between = std::span(_between).first(floats);
    AnalysisKernels::interpolate(reach, taps, between);
    if (peaks.framesMayRaise(between, Values::Samples)) peaks.raise(between);
  }
}

std::array<float, PeakEnvelope::kRawExtremes> UnitPass::around(std::size_t piece) const {
  auto extremes = _pieces[piece].extremes;
  widen(extremes, _pieces[piece - 1].extremes);
  widen(extremes, _pieces[piece + 1].extremes);
  return extremes;
}

// The first block of each stretch only settles the filters.
void UnitPass::weigh(UnitResult& result) {
  const std::size_t block = _layout.blockFrames();
  const std::size_t blocks = (_unitFrames + block - 1) / block;
  result.found.blocks.assign(blocks, BlockSums());
  WeighingLanes lanes;
  for (std::size_t step = 0; step <= std::min(_layout.blocksPerStretch(), blocks); ++step) {
    lanes.plain = lanes.product = {};
    weighHalf(step, 0, block / 2, lanes);
    if (step > 0) storeWeighted(result, step - 1, 0, lanes);
    weighHalf(step, block / 2, block, lanes);
    if (step > 0) storeWeighted(result, step - 1, 1, lanes);
  }
}

void UnitPass::weighHalf(std::size_t step, std::size_t from, std::size_t to, WeighingLanes& lanes) {
  std::array<std::span<const float>, WeighingLanes::kStretches> stretches;
  const std::size_t last = (_unitFrames - 1) / _layout.blockFrames() + 1;
  for (std::size_t i = 0; i < stretches.size(); ++i) {
    const std::size_t block = i * _layout.blocksPerStretch() + step;
    // Beyond the take the first stretch goes along once more, and does not count.
    const std::size_t begin = (block <= last ? block : step) * _layout.blockFrames();
    stretches[i] = frames(begin + from, begin + to);
  }
  lanes.weighted = {};
  AnalysisKernels::weigh(_weighting, stretches, lanes);
}

// After the second half the plain sums are those of the block.
void UnitPass::storeWeighted(UnitResult& result, std::size_t block, std::size_t half,
                             const WeighingLanes& lanes) const {
  for (std::size_t i = 0; i < WeighingLanes::kStretches; ++i) {
    const std::size_t at = i * _layout.blocksPerStretch() + block;
    if (at >= result.found.blocks.size()) return;
    BlockSums& sums = result.found.blocks[at];
    sums.weighted[half] = {static_cast<float>(lanes.weighted[2 * i]),
                           static_cast<float>(lanes.weighted[2 * i + 1])};
    sums.first = lanes.plain[2 * i];
    sums.second = lanes.plain[2 * i + 1];
    sums.product = lanes.product[2 * i];
  }
}
