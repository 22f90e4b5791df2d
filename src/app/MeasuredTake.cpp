// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/MeasuredTake.h"

#include <QElapsedTimer>
#include <algorithm>
#include <thread>

namespace {

constexpr int kLook = 100;        // ms from one look to the next, at least
constexpr int kShareOfLook = 20;  // a copy of a long take may take a twentieth of the time

// What is known of a longer take in between is not shown: that is a copy, of 8 MiB an hour.
constexpr double kLongestInParts = 5400;  // seconds

// One processor is left to the player and the window.
unsigned workers() {
  return std::max(2U, std::thread::hardware_concurrency()) - 1;
}

}  // namespace

MeasuredTake::MeasuredTake(TakeSession& take, QObject* parent) : QObject(parent), _take(take) {
  _timerMeasured.setObjectName(QStringLiteral("timerMeasured"));
  _timerMeasured.setSingleShot(true);
  connect(&_timerMeasured, &QTimer::timeout, this, &MeasuredTake::collect);
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

void MeasuredTake::begin() {
  const std::unique_ptr<WaveFileReader> reader = _take.reader();
  if (!reader) return;
  TakeAnalyzer::Options options;
  options.workers = workers();
  _analysis.reset();
  _progress = 0;
  _comesInParts = reader->durationSeconds() <= kLongestInParts;
  _analyzer = std::make_unique<TakeAnalyzer>(reader->apart(), options);
  _timerMeasured.start(kLook);
  emit measured();
}

void MeasuredTake::drop() {
  _timerMeasured.stop();
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
  if (!_analyzer) return;
  QElapsedTimer timer;
  timer.start();
  const bool isFinished = _analyzer->isFinished();
  const double progress = _analyzer->progress();
  if (isFinished) return finish();
  if (progress != _progress) {
    _progress = progress;
    if (_comesInParts) _analysis = _analyzer->soFar();
    emit measured();
  }
  _timerMeasured.start(std::max(kLook, static_cast<int>(timer.elapsed()) * kShareOfLook));
}

// Where reading failed, what has been found stays.
void MeasuredTake::finish() {
  _timerMeasured.stop();
  _progress = _analyzer->progress();
  auto whole = _analyzer->wait();
  _analysis = whole ? std::move(whole) : _analyzer->soFar();
  _analyzer.reset();
  emit measured();
}
