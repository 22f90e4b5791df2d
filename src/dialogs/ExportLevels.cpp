// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/ExportLevels.h"

#include <cmath>
#include <utility>

#include "export/ClipSearch.h"

namespace {

constexpr int kLook = 50;  // ms

}  // namespace

bool ExportLevels::Aim::isSame(const Aim& other) const {
  const bool isLoudnessSame =
      loudness.has_value() == other.loudness.has_value() &&
      (!loudness || (loudness->lufs == other.loudness->lufs &&
                     loudness->truePeakDbtp == other.loudness->truePeakDbtp));
  return isLoudnessSame && isNormalized == other.isNormalized && gain == other.gain &&
         width == other.width;
}

ExportLevels::ExportLevels(QObject* parent) : QObject(parent) {
  connect(&_timer, &QTimer::timeout, this, &ExportLevels::collect);
}

ExportLevels::~ExportLevels() {
  if (_cancel) *_cancel = true;
}

void ExportLevels::measure(const WaveFileReader& reader, const std::optional<FrameRange>& range,
                           const std::shared_ptr<const TakeAnalysis>& whole) {
  _reader = std::make_unique<WaveFileReader>(reader.apart());
  _firstFrame = range ? range->first : 0;
  _analysis.reset();
  _analyzer.reset();
  if (!range && whole && whole->isComplete()) {
    _analysis = whole;
  } else {
    analyse(range);
  }
  search();
}

void ExportLevels::analyse(const std::optional<FrameRange>& range) {
  TakeAnalyzer::Options options;
  options.firstFrame = _firstFrame;
  if (range) options.endFrame = range->end;
  _analyzer = std::make_unique<TakeAnalyzer>(*_reader, options);
  _timer.start(kLook);
}

void ExportLevels::collect() {
  if (!_analyzer || !_analyzer->isFinished()) return;
  _timer.stop();
  _analysis = _analyzer->wait();
  _analyzer.reset();
  search();
}

void ExportLevels::aim(const Aim& aim) {
  if (aim.isSame(_aim)) return;
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

// Those of what clips; a search that nobody waits for any more ends soon.
void ExportLevels::search() {
  if (_cancel) *_cancel = true;
  _search.giveUp();
  _places.reset();
  const std::optional<double> gain = this->gain();
  if (gain && figures().isOverFullScale()) {
    const auto cancel = std::make_shared<std::atomic<bool>>(false);
    _cancel = cancel;
    _search.begin([this, cancel, gain, reader = _reader->apart(), analysis = _analysis,
                   first = _firstFrame, width = _aim.width] {
      const auto found = ClipSearch::find(reader, *analysis, first, width, *gain, *cancel);
      return [this, found] {
        if (found) _places = found->placeCount();
        emit changed();
      };
    });
  }
  emit changed();
}

TakeFigures ExportLevels::figures() const {
  const std::optional<double> gain = this->gain();
  return gain ? _analysis->at(_aim.width, *gain) : TakeFigures();
}

QString ExportLevels::text(const std::optional<double>& figure, const QString& unit) const {
  if (!_analysis) return _analyzer ? QStringLiteral("…") : QStringLiteral("–");
  if (!figure) return QStringLiteral("–");
  const double tenths = std::round(*figure * 10) + 0.0;  // no "-0.0"
  return QString::number(tenths / 10, 'f', 1) + u' ' + unit;
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
  if (*_places == 1) return tr("Would clip in 24 bit at 1 place");
  return tr("Would clip in 24 bit at %1 places").arg(*_places);
}
