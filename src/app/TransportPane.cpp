// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TransportPane.h"

#include <cmath>

#include "app/MainViewParts.h"
#include "base/Placeholder.h"
#include "controls/NumberText.h"
#include "controls/PlainText.h"

namespace {

constexpr int kTimeRefresh = 200;     // ms
constexpr double kIdleOpacity = 0.5;  // of what belongs to a take, without one
constexpr double kOwnJump = 0.001;    // s: the player jumps to a frame, the slider between two

// "Raw M/S · 24-bit · 48 kHz"
QString describe(const WaveFileReader& reader) {
  const WaveHeader& header = reader.header();
  const bool isFloat = header.AudioFormat == kFormatFloat;
  const QString bits = QString::number(header.BitsPerSample);
  const QString kind =
      reader.isBoMSFormat() ? TransportPane::tr("Raw M/S") : TransportPane::tr("Stereo");
  const QString width =
      isFloat ? TransportPane::tr("%1-bit float").arg(bits) : TransportPane::tr("%1-bit").arg(bits);
  const QString rate = TransportPane::tr("%1 kHz").arg(NumberText::of(header.SampleRate / 1000.0));
  return QStringLiteral("%1 · %2 · %3").arg(kind, width, rate);
}

}  // namespace

TransportPane::TransportPane(PlayerView& view, TakeSession& take, QObject* parent)
    : QObject(parent), _view(view), _take(take), _sliderTimeCell(std::make_shared<J4SliderCell>()) {
  _view.sliderTime->setCell(_sliderTimeCell);
  _view.sliderTime->setRange(0.0, 100.0);
  _timerUpdateCurrentTime.setObjectName(QStringLiteral("timerUpdateCurrentTime"));
  connect(&_timerUpdateCurrentTime, &QTimer::timeout, this, &TransportPane::refresh);
  connect(_view.btnPlayPause, &QToolButton::clicked, this, &TransportPane::playOrPause);
  connect(_view.sliderTime, &Slider::valueAdjusted, this, &TransportPane::positionAdjusted);
  connect(&_take, &TakeSession::closing, this, &TransportPane::stopTimer);
  connect(&_take, &TakeSession::opening, this, [this] { _view.sliderTime->setIsSeeking(false); });
  connect(&_take, &TakeSession::stillOpening, this, &TransportPane::showOpening);
  connect(&_take, &TakeSession::opened, this, &TransportPane::showTake);
  connect(&_take, &TakeSession::closed, this, &TransportPane::showIdle);
  connect(&_take, &TakeSession::stateChanged, this, &TransportPane::showState);
  // Another one's than the slider's: during a pause no timer looks.
  connect(&_take, &TakeSession::jumped, this, [this] {
    const double off = std::abs(_view.sliderTime->value() - _take.position()) * _take.duration();
    if (_take.state() == TakeSession::State::Paused && off > kOwnJump) refresh();
  });
  showIdle();
}

void TransportPane::showIdle() {
  _view.lblFileName->clear();
  _view.lblFileName->setToolTip({});
  _view.lblFormat->setText(tr("Double-click a recording to play it"));
  _view.lblTimeCurrent->setText(QLatin1String(Placeholder::kTime));
  _view.lblTimeTotal->setText(QLatin1String(Placeholder::kTime));
  setPlayable(false);
  _view.sliderTime->setDuration(0.0);
  _view.sliderTime->setValue(0.0);
  showButton(false);
}

void TransportPane::showOpening() {
  showIdle();
  _view.lblFormat->clear();
  showName();
}

void TransportPane::showName() {
  _view.lblFileName->setText(_take.name());
  _view.lblFileName->setToolTip(PlainText::of(_take.name()));
}

void TransportPane::showTake() {
  showName();
  _view.lblFormat->setText(describe(*_take.reader()));
  _view.lblTimeCurrent->setText(_take.timeText());
  _view.lblTimeTotal->setText(_take.durationText());
  setPlayable(true);
  _view.sliderTime->setDuration(_take.duration());
  _view.sliderTime->setRange(0.0, 1.0);
  _view.sliderTime->setValue(0.0);
}

void TransportPane::setPlayable(bool isPlayable) {
  _view.btnPlayPause->setEnabled(isPlayable);
  _view.sliderTime->setEnabled(isPlayable);
  _sliderTimeCell->setSliderEnabled(isPlayable);
  MainViewParts::setAlpha(*_view.lblTimeCurrent, isPlayable ? 1.0 : kIdleOpacity);
}

void TransportPane::showButton(bool isPlaying) {
  if (isPlaying) {
    MainViewParts::setFace(*_view.btnPlayPause, QStringLiteral("play_pause"), tr("Pause"));
  } else {
    MainViewParts::setFace(*_view.btnPlayPause, QStringLiteral("play_play"), tr("Play"));
  }
}

void TransportPane::playOrPause() {
  if (!_view.btnPlayPause->isEnabled() || !_take.isOpen()) return;
  const bool isPaused = _take.state() == TakeSession::State::Paused;
  if (isPaused && _take.hasSoundChanged()) _take.seek(_view.sliderTime->value());
  _take.play();
}

void TransportPane::positionAdjusted(AdjustCause cause) {
  if (!_take.isOpen()) return;
  const double value = _view.sliderTime->value();
  if (isFinal(cause)) return seek(value);
  _view.lblTimeCurrent->setText(_take.textAt(value));
}

void TransportPane::seek(double position) {
  _view.sliderTime->setIsSeeking(false);
  _isSeeking = true;
  _take.seek(position);
  const QString time = _take.timeText();
  if (!time.isEmpty()) _view.lblTimeCurrent->setText(time);
}

void TransportPane::refresh() {
  if (!_take.isOpen() || _view.sliderTime->isSeeking()) return;
  _view.lblTimeCurrent->setText(_take.timeText());
  _view.sliderTime->setValue(_take.position());
}

void TransportPane::startTimer() {
  _timerUpdateCurrentTime.start(kTimeRefresh);
}

void TransportPane::showState() {
  const TakeSession::State state = _take.state();
  const bool isPlaying = state == TakeSession::State::Playing;
  if (!isPlaying && state != TakeSession::State::Paused && state != TakeSession::State::Finished) {
    return;
  }
  showButton(isPlaying);
  if (isPlaying) {
    refresh();
    startTimer();
    _isSeeking = false;
  } else {
    stopTimer();
  }
  // It may have turned since the timer looked, and Play may go on at the slider.
  if (state == TakeSession::State::Paused && _take.loop()) refresh();
  if (state == TakeSession::State::Finished) rewind();
}

// The slider passes the end on its way to the start, but for one that is held.
void TransportPane::rewind() {
  if (!_view.sliderTime->isSeeking()) _view.sliderTime->setValue(1.0);
  _view.lblTimeCurrent->setText(_take.zeroText());
  _view.sliderTime->setValue(0.0);
}
