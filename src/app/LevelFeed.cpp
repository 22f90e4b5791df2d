// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/LevelFeed.h"

#include <algorithm>
#include <cmath>

#include "controls/LevelMeterScale.h"

namespace {

constexpr int kLevelRefresh = 33;  // ms
constexpr float kNoSample = -2.0F;
constexpr double kLevelZero = 48.0;  // dB below full scale at level 0
constexpr double kBeyond = 1e6;      // silence is minus infinity, which no integer holds

QStringList levelLabels() {
  return {QStringLiteral("+6"),  QStringLiteral("0"),   QStringLiteral("-6"),
          QStringLiteral("-12"), QStringLiteral("-18"), QStringLiteral("-24"),
          QStringLiteral("-36"), QStringLiteral("-48")};
}

double decibels(double sample) {
  return 20.0 * std::log10(std::abs(sample));
}

std::int64_t meterLevel(double sample) {
  return std::llround(std::clamp(decibels(sample) + kLevelZero, -kBeyond, kBeyond));
}

std::int64_t magnitude(double sample) {
  return static_cast<std::int64_t>(std::min(std::abs(decibels(sample)), kBeyond));
}

}  // namespace

LevelFeed::LevelFeed(StageView& view, TakeSession& take, QObject* parent)
    : QObject(parent), _view(view), _take(take) {
  _view.tickOfLevel->setTexts(levelLabels());
  _view.tickOfLevel->setEnable(true);
  _view.tickOfLevel->initTick();
  for (LevelMeter* const meter : {_view.lvlLeft, _view.lvlRight}) {
    meter->setMaxValue(LevelMeterScale::kFull);
    meter->setZero(static_cast<std::int64_t>(kLevelZero));
  }
  clear();
  _timerLevel.setObjectName(QStringLiteral("timerLevel"));
  _timerLevel.setTimerType(Qt::PreciseTimer);
  connect(&_timerLevel, &QTimer::timeout, this, [this] { update(kInterval); });
  connect(&_take, &TakeSession::closing, this, &LevelFeed::drop);
  connect(&_take, &TakeSession::opening, this, &LevelFeed::clear);
  connect(&_take, &TakeSession::opened, this, [this] { _reader = _take.reader(); });
  connect(&_take, &TakeSession::stateChanged, this, &LevelFeed::showState);
  connect(&_take, &TakeSession::levelsSent, this, &LevelFeed::showMagnitudes);
}

void LevelFeed::drop() {
  stopTimer();
  clear();
  _reader.reset();
}

void LevelFeed::clear() {
  _view.lvlLeft->setLevel(0);
  _view.lvlRight->setLevel(0);
}

void LevelFeed::startTimer() {
  _timerLevel.start(kLevelRefresh);
}

void LevelFeed::stopTimer() {
  _timerLevel.stop();
  if (_reader) _reader->image()->abandon();
}

void LevelFeed::showState() {
  const TakeSession::State state = _take.state();
  if (state == TakeSession::State::Playing) {
    update(1.0 / 30.0);
    startTimer();
  } else if (state == TakeSession::State::Paused || state == TakeSession::State::Finished) {
    stopTimer();
    clear();
  }
}

void LevelFeed::update(double interval) {
  if (!_reader) return;
  const double time = _take.playedTime();
  // What is not at hand yet is not known; the bars do not stand at what was before.
  if (!_reader->follow(time, time + interval)) return clear();
  float left = 0.0F;
  float right = 0.0F;
  const double attenuation = -static_cast<double>(_take.gain());
  _reader->getSampleLevelMeterFrom(time, time + interval, left, right, attenuation,
                                   std::trunc(_take.angle()));
  if (left == kNoSample) return;
  _view.lvlLeft->setLevel(meterLevel(static_cast<double>(left)));
  _view.lvlRight->setLevel(meterLevel(static_cast<double>(right)));
}

void LevelFeed::showMagnitudes(double left, double right) {
  _view.lvlLeft->setLevel(magnitude(left));
  _view.lvlRight->setLevel(magnitude(right));
}
