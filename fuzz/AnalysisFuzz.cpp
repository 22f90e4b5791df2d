// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
//
// Any bytes as a take, and any question about it: the figures hold together, the peak is the one
// that decoding finds, no column hides a sample, and workers, cutting and a waveform that comes
// first make no difference.

#include <algorithm>
#include <cmath>
#include <memory>
#include <span>
#include <vector>

#include "FuzzInput.h"
#include "WaveRecipe.h"
#include "analysis/TakeAnalyzer.h"
#include "dsp/Kernels.h"
#include "dsp/SideGain.h"
#include "wav/FrameStream.h"

namespace {

constexpr double kMostGain = 200;

struct Question {
  explicit Question(FuzzInput& input)
      : from(input.take<std::uint64_t>()),
        to(input.take<std::uint64_t>()),
        gain(input.take<double>()),
        columns(input.take<std::uint16_t>() % 600),
        width(input.take<std::uint8_t>()),
        workers(1 + input.take<std::uint8_t>() % 3),
        first(input.take<std::uint16_t>()),
        end(input.take<std::uint16_t>()),
        isRaw((input.take<std::uint8_t>() & 1) != 0),
        waveformFirst((input.take<std::uint8_t>() & 1) != 0) {
    gain = std::isfinite(gain) ? std::clamp(gain, -kMostGain, kMostGain) : 0;
  }

  std::uint64_t from, to;
  double gain;
  std::size_t columns;
  int width;
  unsigned workers;
  std::uint64_t first, end;
  bool isRaw, waveformFirst;
};

using Frames = std::vector<float>;

Frames decoded(const WaveFileReader& reader, int width) {
  FrameStream stream(reader);
  Frames frames(2 * stream.framesLeft());
  require(stream.read(frames) == frames.size() / 2, "a file in memory can be read");
  if (reader.isBoMSFormat()) Kernels::decodeMidSide(frames, SideGain::factor(width));
  return frames;
}

bool isOrdered(const std::optional<double>& less, const std::optional<double>& more) {
  constexpr double kRounding = 1e-3;
  return !less || !more || *less <= *more + kRounding;
}

void checkFigures(const TakeFigures& figures) {
  require(isOrdered(figures.integratedLufs, figures.momentaryMaxLufs), "the mean is no maximum");
  require(isOrdered(figures.shortTermMaxLufs, figures.momentaryMaxLufs), "long is not louder");
  require(isOrdered(figures.samplePeakDbfs, figures.truePeakDbtp), "a true peak is no less");
  require(isOrdered(0.0, figures.rangeLu), "a range is not negative");
  require(!figures.correlation || std::fabs(*figures.correlation) <= 1, "a correlation is one");
  require(figures.correlation.has_value() == figures.balanceDb.has_value(), "both or none");
  require(figures.peakLeft >= 0 && figures.peakRight >= 0, "a peak is a magnitude");
}

void checkColumn(const Waveform::Column& column, std::span<const float> frames) {
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    require(column.isKnown || (std::isnan(frames[i]) && std::isnan(frames[i + 1])), "it is known");
    require(!(frames[i] > column.greatestLeft), "left is not hidden above");
    require(!(frames[i] < column.leastLeft), "left is not hidden below");
    require(!(frames[i + 1] > column.greatestRight), "right is not hidden above");
    require(!(frames[i + 1] < column.leastRight), "right is not hidden below");
  }
}

void checkWaveform(const TakeAnalysis& analysis, const Question& question, const Frames& frames) {
  const Waveform waveform =
      analysis.waveform(question.width, 0, question.from, question.to, question.columns);
  require(waveform.columns.size() == question.columns, "as many columns as asked for");
  for (std::size_t i = 0; i < question.columns && waveform.from < waveform.to; ++i) {
    const std::uint64_t begin = waveform.columnStart(i);
    const std::uint64_t end = std::max(begin + 1, waveform.columnStart(i + 1));
    checkColumn(waveform.columns[i], std::span(frames).subspan(2 * begin, 2 * (end - begin)));
  }
}

void checkSame(const TakeAnalysis& one, const TakeAnalysis& other) {
  const auto& units = one.findings().units;
  require(units.size() == other.findings().units.size(), "the same units");
  for (std::size_t i = 0; i < units.size(); ++i) {
    require(units[i]->keys == other.findings().units[i]->keys, "the same bins");
    require(units[i]->peakKeys == other.findings().units[i]->peakKeys, "the same peaks of blocks");
  }
  require(one.findings().samplePeaks == other.findings().samplePeaks, "the same sample peaks");
  require(one.findings().truePeaks == other.findings().truePeaks, "the same true peaks");
}

void checkStretch(const WaveFileReader& reader, const TakeAnalysis& whole,
                  const Question& question) {
  TakeAnalyzer::Options options;
  options.firstFrame = question.first;
  options.endFrame = question.end;
  options.workers = question.workers;
  const auto stretch = TakeAnalyzer(reader, options).wait();
  require(stretch != nullptr, "a stretch of a file in memory can be analysed");
  checkFigures(stretch->at(question.width, question.gain));
  const TakeFigures bounds =
      whole.at(question.width, 0, question.first, std::max(question.first, question.end));
  const TakeFigures exact = stretch->at(question.width, 0);
  require(!(exact.peakLeft > bounds.peakLeft), "a bound is not passed on the left");
  require(!(exact.peakRight > bounds.peakRight), "a bound is not passed on the right");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const Question question(input);
  const auto reader = WaveFileReader::readFromData(recipe::takeFile(input));
  if (!reader->isValidFile()) return 0;
  reader->setIsBoMSFormat(question.isRaw);
  TakeAnalyzer::Options options;
  options.workers = question.workers;
  options.waveformFirst = question.waveformFirst;
  options.longTake = 0;
  const auto analysis = TakeAnalyzer(*reader, options).wait();
  require(analysis != nullptr, "a file in memory can be analysed");
  const Frames frames = decoded(*reader, question.width);
  const float peak = Kernels::peakMagnitude(frames, 0.0F);
  require(isSameSample(analysis->samplePeak(question.width), peak), "the peak is that of a decode");
  checkFigures(analysis->at(question.width, question.gain));
  checkFigures(analysis->at(question.width, question.gain, question.from, question.to));
  checkWaveform(*analysis, question, frames);
  checkStretch(*reader, *analysis, question);
  options.workers = 1;
  options.waveformFirst = false;
  checkSame(*analysis, *TakeAnalyzer(*reader, options).wait());
  return 0;
}
