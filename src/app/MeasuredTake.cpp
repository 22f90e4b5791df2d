// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/MeasuredTake.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace {

constexpr int kLook = 100;       // ms from one look to the next, at least
constexpr int kShareOfLook = 5;  // a copy of a long take may take a fifth of the time

// One processor is left to the player and the window.
unsigned workers() {
  return std::max(2U, std::thread::hardware_concurrency()) - 1;
}

}  // namespace

MeasuredTake::MeasuredTake(TakeSession& take, QObject* parent) : QObject(parent), _take(take) {
  _timerMeasured.setObjectName(QStringLiteral("timerMeasured"));
  _timerMeasured.setSingleShot(true);
  connect(&_timerMeasured, &QTimer::timeout, this, &MeasuredTake::collect);
  connect(&_side, &MeasuredSide::measured, this, &MeasuredTake::measured);
  connect(&_take, &TakeSession::opened, this, &MeasuredTake::begin);
  connect(&_take, &TakeSession::closing, this, &MeasuredTake::drop);
  connect(&_take, &TakeSession::closed, this, &MeasuredTake::drop);
}

int MeasuredTake::width() const {
  return WaveFileReader::wholeAngle(_take.angle());
}

double MeasuredTake::gain() const {
  return static_cast<double>(_take.gain());
}

// At width 0 both sides are Mid.
int MeasuredTake::shownWidth() const {
  return _take.solo() == Solo::Mid ? 0 : width();
}

Waveform MeasuredTake::waveform(std::uint64_t from, std::uint64_t to, std::size_t columns) const {
  const bool isSide = _take.solo() == Solo::Side;
  const auto& known = isSide ? _side.analysis() : _analysis;
  if (!known) return {};
  Waveform wave = known->waveform(shownWidth(), gain(), from, to, columns);
  for (Waveform::Column& column : wave.columns) {
    if (!isSide) break;
    column.leastLeft = column.leastRight;
    column.greatestLeft = column.greatestRight;
  }
  return wave;
}

void MeasuredTake::begin() {
  const std::unique_ptr<WaveFileReader> reader = _take.reader();
  if (!reader) return;
  TakeAnalyzer::Options options;
  options.workers = workers();
  _analysis.reset();
  _progress = 0;
  _analyzer = std::make_shared<TakeAnalyzer>(reader->apart(), options);
  _timerMeasured.start(kLook);
  emit measured();
}

void MeasuredTake::drop() {
  _timerMeasured.stop();
  _errand.giveUp();
  if (_analyzer) _analyzer->cancel();
  _analyzer.reset();
  _progress = 0;
  _analysis.reset();
  emit measured();
}

void MeasuredTake::lookAt(double seconds) {
  const auto reader = _take.reader();
  if (!_analyzer || !reader || !(seconds > 0)) return;
  _analyzer->lookAt(static_cast<std::uint64_t>(seconds * reader->header().SampleRate));
}

void MeasuredTake::collect() {
  if (!_analyzer || _errand.isUnderWay()) return;
  const bool isFinished = _analyzer->isFinished();
  if (isFinished || _analyzer->progress() != _progress) return fetch(isFinished);
  _timerMeasured.start(kLook);
}

// Where reading failed, what has been found stays. Where there is no thread it is done here.
void MeasuredTake::fetch(bool isLast) {
  const Errand::Work work = [this, isLast, analyzer = _analyzer]() -> Errand::Outcome {
    const double progress = analyzer->progress();
    auto known = isLast ? analyzer->wait() : nullptr;
    if (!known) known = analyzer->soFar();
    return [this, known, progress, isLast] { take(known, progress, isLast); };
  };
  _fetched.start();
  if (!_errand.begin(work)) work()();
}

void MeasuredTake::take(std::shared_ptr<const TakeAnalysis> known, double progress, bool isLast) {
  _analysis = std::move(known);
  _progress = progress;
  if (isLast) {
    _analyzer.reset();
  } else {
    _timerMeasured.start(std::max(kLook, static_cast<int>(_fetched.elapsed()) * kShareOfLook));
  }
  emit measured();
}
