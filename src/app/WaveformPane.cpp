// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WaveformPane.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kHeadRefresh = 33;  // ms

WaveformColumns::Column heard(const Waveform::Column& from) {
  return {std::max(from.greatestLeft, -from.leastLeft),
          std::max(from.greatestRight, -from.leastRight), from.isKnown};
}

}  // namespace

WaveformPane::WaveformPane(PlayerView& view, TakeSession& take, MeasuredTake& measured,
                           QObject* parent)
    : QObject(parent), _view(view), _take(take), _measured(measured) {
  _timerWaveform.setObjectName(QStringLiteral("timerWaveform"));
  connect(&_timerWaveform, &QTimer::timeout, this, &WaveformPane::refresh);
  connect(&_take, &TakeSession::opened, this, &WaveformPane::showTake);
  connect(&_take, &TakeSession::opening, this, &WaveformPane::showIdle);
  connect(&_take, &TakeSession::closed, this, &WaveformPane::showIdle);
  connect(&_take, &TakeSession::stateChanged, this, &WaveformPane::showState);
  connect(&_take, &TakeSession::soundChanged, this, &WaveformPane::draw);
  connect(&_measured, &MeasuredTake::measured, this, &WaveformPane::draw);
  connect(_view.waveform, &WaveformViewer::stretchChanged, this, &WaveformPane::draw);
  connect(_view.waveform, &WaveformViewer::valueAdjusted, this, &WaveformPane::moved);
  connect(_view.sliderTime, &Slider::valueAdjusted, this, &WaveformPane::refresh);
  showIdle();
}

void WaveformPane::showIdle() {
  _timerWaveform.stop();
  _rate = 0;
  _view.waveform->setLength(0);
  _view.waveform->setEnabled(false);
}

void WaveformPane::showTake() {
  const auto reader = _take.reader();
  _rate = reader->header().SampleRate;
  _view.waveform->setLength(reader->durationSeconds());
  _view.waveform->setEnabled(true);
}

void WaveformPane::showState() {
  if (_take.state() == TakeSession::State::Playing) {
    _timerWaveform.start(kHeadRefresh);
  } else {
    _timerWaveform.stop();
  }
  refresh();
}

// A take that has ended stands at its beginning, as the slider does.
double WaveformPane::playHead() const {
  const bool isSlider =
      _view.sliderTime->isSeeking() || _take.state() == TakeSession::State::Finished;
  return isSlider ? _view.sliderTime->fraction() * _view.waveform->length() : _take.playedTime();
}

void WaveformPane::refresh() {
  if (_take.isOpen() && !_view.waveform->isHeld()) _view.waveform->setPosition(playHead());
}

// The slider's owner seeks, and shows the time meanwhile.
void WaveformPane::moved(AdjustCause cause) {
  J4Slider& slider = *_view.sliderTime;
  const double length = _view.waveform->length();
  if (!(length > 0)) return;
  if (!isFinal(cause)) slider.setIsSeeking(true);
  const double position = _view.waveform->position() / length;
  slider.adjust(position, cause);
  if (isFinal(cause)) _measured.lookAt(_view.waveform->position());
}

void WaveformPane::draw() {
  WaveformViewer& viewer = *_view.waveform;
  const auto& analysis = _measured.analysis();
  if (!analysis || !(viewer.length() > 0)) return viewer.setColumns({});
  const auto from = static_cast<std::uint64_t>(viewer.stretch().from() * _rate);
  const auto to = static_cast<std::uint64_t>(std::llround(viewer.stretch().to() * _rate));
  const auto count = static_cast<std::size_t>(std::max(0, viewer.columnsWanted()));
  const Waveform wave = analysis->waveform(_measured.width(), _measured.gain(), from, to, count);
  WaveformColumns columns;
  columns.from = static_cast<double>(wave.from) / _rate;
  columns.to = static_cast<double>(wave.to) / _rate;
  columns.columns.reserve(wave.columns.size());
  for (const Waveform::Column& column : wave.columns) columns.columns.push_back(heard(column));
  viewer.setColumns(std::move(columns));
}
