// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/LevelFeed.h"

#include <algorithm>
#include <cmath>

#include "controls/LevelMeterScale.h"
#include "wav/FrameDecoder.h"

namespace {

constexpr int kLevelRefresh = 33;    // ms
constexpr double kLevelZero = 48.0;  // dB below full scale at level 0
constexpr double kLatest = 0.5;      // seconds that a timer may be late
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
  connect(&_take, &TakeSession::opening, this, &LevelFeed::begin);
  connect(&_take, &TakeSession::opened, this,
          [this] { _heard = std::make_unique<HeardFrames>(_take.reader()); });
  for (ClipLamp* const lamp : {_view.clipLeft, _view.clipRight}) {
    lamp->setToolTip(tr("Greatest level so far; a click clears it"));
    connect(lamp, &ClipLamp::clicked, this, &LevelFeed::clearPeaks);
  }
  connect(&_take, &TakeSession::stateChanged, this, &LevelFeed::showState);
  connect(&_take, &TakeSession::levelsSent, this, &LevelFeed::showMagnitudes);
}

void LevelFeed::drop() {
  stopTimer();
  clear();
  _heard.reset();
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
  if (_heard) _heard->reader().image()->abandon();
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

void LevelFeed::begin() {
  clear();
  clearPeaks();
}

void LevelFeed::clearPeaks() {
  _peakLeft.clear();
  _peakRight.clear();
  showPeaks();
}

void LevelFeed::setByRecordersRule(bool isByRule) {
  _isByRule = isByRule;
  clearPeaks();
  _view.lblLevelValue->setText(isByRule ? tr("recorder's rule") : tr("peak hold"));
}

void LevelFeed::showPeaks() {
  _view.clipLeft->setPeak(_peakLeft);
  _view.clipRight->setPeak(_peakRight);
  _view.lvlLeft->setHold(_peakLeft.decibels() + kLevelZero);
  _view.lvlRight->setHold(_peakRight.decibels() + kLevelZero);
}

void LevelFeed::update(double interval) {
  if (!_heard) return;
  const double time = _take.playedTime();
  if (_isByRule && _take.solo() == Solo::None) return updateByRule(time, interval);
  updateTruly(time, interval);
}

// What is not at hand yet is not known. Where it goes on with what was measured, as at the turn of
// a loop that is longer than what is read ahead, it may be in a moment, and the bars wait for it.
void LevelFeed::wait(double time, const HeardSound& sound) {
  const double late = _heard->secondsUntil(_measuredTo, time, sound);
  if (!(std::abs(late) < kLatest)) clear();
}

void LevelFeed::updateByRule(double time, double interval) {
  WaveFileReader& reader = _heard->reader();
  const HeardSound sound = _take.heardSound();
  if (!reader.follow(time, time + interval)) return wait(time, sound);
  _measuredTo = _heard->heardAt(time, time + interval, sound);
  float left = 0.0F;
  float right = 0.0F;
  const double attenuation = -static_cast<double>(_take.gain());
  reader.getSampleLevelMeterFrom(time, time + interval, left, right, attenuation,
                                 std::trunc(_take.angle()));
  if (left == FrameDecoder::kNoSample) return;
  _view.lvlLeft->setLevel(meterLevel(static_cast<double>(left)));
  _view.lvlRight->setLevel(meterLevel(static_cast<double>(right)));
}

// From where the last look ended, where that was just now: a late timer leaves no peak out.
void LevelFeed::updateTruly(double time, double interval) {
  const HeardSound sound = _take.heardSound();
  const double late = _heard->secondsUntil(_measuredTo, time, sound);
  const bool goesOn = late > 0 && late < kLatest;
  const double from = goesOn ? _measuredTo : time;
  const double to = goesOn ? from + late + interval : time + interval;
  const auto frames = _heard->read(from, to, sound);
  if (!frames) return wait(time, sound);
  if (frames->empty()) return;
  _measuredTo = _heard->heardAt(from, to, sound);
  double left = 0;
  double right = 0;
  for (std::size_t i = 0; i + 1 < frames->size(); i += 2) {
    left = std::max(left, std::abs(static_cast<double>((*frames)[i])));
    right = std::max(right, std::abs(static_cast<double>((*frames)[i + 1])));
  }
  _view.lvlLeft->setLevel(meterLevel(left));
  _view.lvlRight->setLevel(meterLevel(right));
  if (!_isByRule) keepPeaks(left, right);
}

void LevelFeed::keepPeaks(double left, double right) {
  _peakLeft.add(left);
  _peakRight.add(right);
  showPeaks();
}

void LevelFeed::showMagnitudes(double left, double right) {
  _view.lvlLeft->setLevel(magnitude(left));
  _view.lvlRight->setLevel(magnitude(right));
}
