// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/MeasuredSide.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace {

constexpr int kLook = 100;  // ms from one look to the next

// One processor is left to the player and the window.
unsigned workers() {
  return std::max(2U, std::thread::hardware_concurrency()) - 1;
}

}  // namespace

MeasuredSide::MeasuredSide(TakeSession& take, QObject* parent) : QObject(parent), _take(take) {
  connect(&_timer, &QTimer::timeout, this, &MeasuredSide::collect);
  connect(&_take, &TakeSession::soundChanged, this, &MeasuredSide::begin);
  connect(&_take, &TakeSession::closing, this, &MeasuredSide::drop);
}

void MeasuredSide::begin() {
  if (_take.solo() != Solo::Side || _analysis || _analyzer) return;
  WaveFileReader channels = _take.reader()->apart();
  channels.setIsBoMSFormat(false);
  TakeAnalyzer::Options options;
  options.workers = workers();
  _analyzer = std::make_unique<TakeAnalyzer>(channels, options);
  _timer.start(kLook);
}

void MeasuredSide::drop() {
  _timer.stop();
  _analyzer.reset();
  _analysis.reset();
}

// Where reading failed, what has been found stays.
void MeasuredSide::collect() {
  if (!_analyzer->isFinished()) return;
  _timer.stop();
  auto whole = _analyzer->wait();
  _analysis = whole ? std::move(whole) : _analyzer->soFar();
  _analyzer.reset();
  emit measured();
}
