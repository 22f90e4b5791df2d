// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "analysis/CloseUp.h"

#include <algorithm>
#include <array>
#include <span>

#include "analysis/BinKeys.h"
#include "analysis/Extremes.h"
#include "analysis/PeakEnvelope.h"
#include "analysis/WaveformBins.h"
#include "analysis/WidthGrid.h"
#include "dsp/AnalysisKernels.h"
#include "dsp/PlainAnalysisKernels.h"

namespace {

constexpr std::size_t kFramesAtOnce = 512;

/// What is found in one column.
struct Found {
  explicit Found(bool isRawMidSide)
      : count(isRawMidSide ? PeakEnvelope::kRawExtremes : PeakEnvelope::kPlainExtremes),
        gains(isRawMidSide ? WidthGrid::nodeGains().subspan(1) : std::span<const float>()) {
    Extremes::makeEmpty(extremes);
  }

  template <class Kernels>
  void add(std::span<const float> frames) {
    Kernels::raiseExtremes(frames, gains, std::span(extremes).first(count));
    if (!gains.empty()) Kernels::raiseMagnitudes(frames, WidthGrid::peakNodeGains(), peaks);
  }

  std::size_t count;
  std::span<const float> gains;
  std::array<float, PeakEnvelope::kRawExtremes> extremes{};
  std::array<float, WidthGrid::kPeakNodes.size()> peaks{};
};

}  // namespace

CloseUp::CloseUp(const WaveFileReader& reader, std::uint64_t from, std::uint64_t to,
                 std::size_t columns)
    : _isRawMidSide(reader.isBoMSFormat()),
      _keys(columns * BinKeys::planes(_isRawMidSide), UpperKey::kNothing),
      _peakKeys(_isRawMidSide ? columns * WidthGrid::kPeakNodes.size() : 0, UpperKey::kNothing) {
  _columns.to = std::min(to, reader.frameCount());
  _columns.from = std::min(from, _columns.to);
  _columns.columns.resize(columns);
}

std::shared_ptr<const CloseUp> CloseUp::read(const WaveFileReader& reader, std::uint64_t from,
                                             std::uint64_t to, std::size_t columns,
                                             const std::atomic<bool>* cancel) {
  const std::shared_ptr<CloseUp> closeUp(new CloseUp(reader, from, to, columns));
  const Waveform& stretch = closeUp->_columns;
  if (stretch.from == stretch.to) return closeUp;
  FrameStream stream(reader);
  stream.seek(stretch.from);
  stream.stopAt(stretch.to);
  std::vector<float> block(2 * kFramesAtOnce);
  for (std::size_t i = 0; i < columns; ++i) {
    if (cancel != nullptr && *cancel) return nullptr;
    if (!closeUp->readColumn(stream, i, block)) return nullptr;
  }
  return closeUp;
}

bool CloseUp::readColumn(FrameStream& stream, std::size_t column, std::vector<float>& block) {
  Found found(_isRawMidSide);
  const std::uint64_t begin = _columns.columnStart(column);
  const std::uint64_t end = std::max(begin + 1, _columns.columnStart(column + 1));
  if (_columns.to - stream.framesLeft() != begin) stream.seek(begin);
  for (std::uint64_t at = begin; at < end;) {
    const std::uint64_t count = std::min<std::uint64_t>(kFramesAtOnce, end - at);
    const std::span<float> frames = std::span(block).first(2 * count);
    if (stream.read(frames) != count) return false;
    if (AnalysisKernels::areFinite(frames)) {
      found.add<AnalysisKernels>(frames);
    } else {
      found.add<PlainAnalysisKernels>(frames);
    }
    at += count;
  }
  BinKeys::store(std::span(found.extremes).first(found.count), _isRawMidSide, column, _keys);
  if (_isRawMidSide) BinKeys::storePeaks(found.peaks, column, _peakKeys);
  return true;
}

Waveform CloseUp::at(int width, double gain) const {
  Waveform waveform = _columns;
  const std::size_t count = waveform.columns.size();
  if (waveform.from == waveform.to) return waveform;
  const BinKeys keys{_keys, count, _peakKeys, count, 1};
  const WaveformBins bins(_isRawMidSide, width, gain);
  for (std::size_t i = 0; i < count; ++i) {
    WaveformBins::Greatest greatest;
    bins.raise(greatest, keys, i, i + 1);
    waveform.columns[i] = bins.column(greatest);
  }
  return waveform;
}

bool CloseUp::isOf(std::uint64_t from, std::uint64_t to, std::size_t columns) const {
  return _columns.from == from && _columns.to == to && _columns.columns.size() == columns;
}
