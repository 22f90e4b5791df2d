// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/RunningAnalysis.h"

#include <algorithm>
#include <string>
#include <thread>
#include <utility>

namespace {

constexpr int kLook = 60;       // ms from one picture to the next look: ten pictures a second
constexpr int kLookAgain = 20;  // ms, where nothing more was known

// One processor is left to the player and the window, but while the waveform is drawn.
unsigned workers() {
  return std::max(2U, std::thread::hardware_concurrency()) - 1;
}

}  // namespace

RunningAnalysis::RunningAnalysis(QObject* parent) : QObject(parent) {
  _timerMeasured.setObjectName(QStringLiteral("timerMeasured"));
  _timerMeasured.setSingleShot(true);
  connect(&_timerMeasured, &QTimer::timeout, this, &RunningAnalysis::collect);
}

void RunningAnalysis::begin(const WaveFileReader& reader, const Cache& cache) {
  drop();
  _cache = cache;
  if (_cache) return look(reader);
  analyse(reader);
}

// Where there is no thread, or no memory, nothing is kept either.
void RunningAnalysis::look(const WaveFileReader& reader) {
  _key = {};
  const Errand::Work work = [this, reader, cache = _cache]() -> Errand::Outcome {
    const auto key = AnalysisCache::Key::of(reader);
    return [this, reader, key, known = cache->find(key)] {
      _isLooking = false;
      _key = key;
      if (known) return take(known, 1, true);
      analyse(reader);
    };
  };
  _isLooking = _errand.begin(work, [this, reader](const std::string& /*why*/) {
    _isLooking = false;
    analyse(reader);
  });
  if (!_isLooking) analyse(reader);
}

void RunningAnalysis::analyse(const WaveFileReader& reader) {
  TakeAnalyzer::Options options;
  options.workers = workers();
  options.workersMemory = TakeAnalyzer::kSmallMemory;
  options.waveformFirst = true;
  _analyzer = std::make_shared<TakeAnalyzer>(reader, options);
  if (_lookAt) _analyzer->lookAt(*_lookAt);
  _timerMeasured.start(kLook);
}

void RunningAnalysis::drop() {
  _timerMeasured.stop();
  _errand.giveUp();
  if (_analyzer) _analyzer->cancel();
  _analyzer.reset();
  _progress = 0;
  _analysis.reset();
  _isLooking = false;
  _lookAt.reset();
  _key = {};
}

void RunningAnalysis::lookAt(std::uint64_t frame) {
  if (_isLooking) _lookAt = frame;
  if (_analyzer) _analyzer->lookAt(frame);
}

void RunningAnalysis::collect() {
  if (!_analyzer || _errand.isUnderWay()) return;
  const bool isFinished = _analyzer->isFinished();
  if (isFinished || _analyzer->progress() != _progress) return fetch(isFinished);
  _timerMeasured.start(kLookAgain);
}

// Where reading failed, what has been found stays. Where there is no thread it is done here. When
// all is known the last worker may still be on its way out: nobody waits for that.
void RunningAnalysis::fetch(bool isLast) {
  const Errand::Work work = [this, isLast, analyzer = _analyzer]() -> Errand::Outcome {
    const double progress = analyzer->progress();
    auto known = isLast ? analyzer->wait() : nullptr;
    if (!known) known = analyzer->soFar();
    const bool isAll = known->isComplete();
    return [this, known, done = isAll ? 1 : progress, isEnd = isLast || isAll] {
      take(known, done, isEnd);
    };
  };
  _fetched.start();
  const auto failed = [this, isLast](const std::string& /*why*/) {
    take(_analysis, _progress, isLast);
  };
  if (!_errand.begin(work, failed)) work()();
}

void RunningAnalysis::take(std::shared_ptr<const TakeAnalysis> known, double progress,
                           bool isLast) {
  _analysis = std::move(known);
  _progress = progress;
  if (isLast) {
    if (_analyzer) keep();
    _analyzer.reset();
  } else {
    // What looks cost of a long take is half of the time at most.
    _timerMeasured.start(std::max(kLook, static_cast<int>(_fetched.elapsed())));
  }
  emit measured();
}

// Nobody waits for it.
void RunningAnalysis::keep() {
  if (!_cache || !_analysis || !_analysis->isComplete()) return;
  _keeping.begin([cache = _cache, key = _key, analysis = _analysis]() -> Errand::Outcome {
    cache->keep(key, *analysis);
    return [] {};
  });
}
