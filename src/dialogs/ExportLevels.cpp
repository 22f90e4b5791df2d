// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportLevels.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <string>

#include "analysis/TakeAnalyzer.h"
#include "controls/NumberText.h"
#include "export/ClipSearch.h"

void ExportLevels::measure(const WaveFileReader& reader, const std::optional<FrameRange>& range,
                           const std::shared_ptr<const TakeAnalysis>& whole) {
  _reader = std::make_unique<WaveFileReader>(reader.apart());
  _range = {0, reader.frameCount()};
  if (range) _range = {range->first, std::min(range->end, reader.frameCount())};
  const bool isKnown = whole && whole->isComplete() && whole->isOf(reader, 0, reader.frameCount());
  _whole = isKnown ? whole : nullptr;
  _analysis.reset();
  if (!range && _whole) {
    _measuring.cancel();
    _analysis = _whole;
  } else {
    analyse();
  }
  search();
}

// Until its workers are over, too: what is asked next would have workers of its own beside those
// that hang with the card.
void ExportLevels::analyse() {
  TakeAnalyzer::Options options;
  options.firstFrame = _range.first;
  options.endFrame = _range.end;
  options.workersMemory = TakeAnalyzer::kSmallMemory;
  options.keepsBins = false;
  const auto reader = std::make_shared<const WaveFileReader>(_reader->apart());
  const auto work = [this, reader, options](const std::atomic<bool>& cancel) -> Errand::Outcome {
    TakeAnalyzer analyzer(*reader, options);
    const auto found = analyzer.wait(&cancel);
    analyzer.waitForWorkers();
    return [this, found] {
      _analysis = found;
      search();
    };
  };
  _measuring.ask(work, [this](const std::string& /*why*/) { emit changed(); });
}

bool ExportLevels::hasFailed() const {
  return _reader && !_analysis && !_measuring.isUnderWay();
}

void ExportLevels::aim(const Aim& aim) {
  if (aim == _aim) return;
  _aim = aim;
  search();
}

std::optional<double> ExportLevels::gain() const {
  if (!_analysis) return std::nullopt;
  if (_aim.loudness) return LoudnessGain(*_analysis, _aim.width, *_aim.loudness).gain();
  if (!_aim.isNormalized) return _aim.gain;
  const auto peak = static_cast<double>(_analysis->samplePeak(_aim.width));
  return peak > 0 ? -20.0 * std::log10(peak) : 0.0;
}

// For the places that clip, where any may.
void ExportLevels::search() {
  _places.reset();
  const std::optional<double> gain = this->gain();
  if (gain && figures().isOverFullScale()) {
    count(*gain);
  } else {
    _search.cancel();
  }
  emit changed();
}

void ExportLevels::count(double gain) {
  const auto work = [this, gain, reader = std::make_shared<const WaveFileReader>(_reader->apart()),
                     whole = _whole, range = _range,
                     width = _aim.width](const std::atomic<bool>& cancel) -> Errand::Outcome {
    const auto found = ClipSearch::find(*reader, whole.get(), range, width, gain, cancel);
    return [this, found] {
      if (found) _places = found->placeCount();
      emit changed();
    };
  };
  _search.ask(work, [this](const std::string& /*why*/) { emit changed(); });
}

TakeFigures ExportLevels::figures() const {
  const std::optional<double> gain = this->gain();
  return gain ? _analysis->at(_aim.width, *gain) : TakeFigures();
}

QString ExportLevels::text(const std::optional<double>& figure, const QString& unit) const {
  if (!_analysis) return _measuring.isUnderWay() ? QStringLiteral("…") : QStringLiteral("–");
  if (!figure) return QStringLiteral("–");
  return NumberText::level(*figure) + u' ' + unit;
}

QString ExportLevels::loudnessText() const {
  return text(figures().integratedLufs, QStringLiteral("LUFS"));
}

QString ExportLevels::truePeakText() const {
  return text(figures().truePeakDbtp, QStringLiteral("dBTP"));
}

QString ExportLevels::clippingText() const {
  // What is brought to a level ends below full scale but for a rounding, which does not count.
  const bool isBrought = _aim.isNormalized || _aim.loudness;
  const bool isOver = !isBrought && figures().isOverFullScale();
  if (!_places) return isOver ? tr("Would clip in 24 bit") : QString();
  if (*_places == 0) return {};
  return tr("Would clip in 24 bit at %n place(s)", nullptr, static_cast<int>(*_places));
}
