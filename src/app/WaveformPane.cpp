// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WaveformPane.h"

#include <algorithm>
#include <cmath>

#include "app/WindowSight.h"

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
  connect(&_timerWaveform, &QTimer::timeout, this, &WaveformPane::tick);
  connect(&_take, &TakeSession::opened, this, &WaveformPane::showTake);
  connect(&_take, &TakeSession::opening, this, &WaveformPane::showIdle);
  connect(&_take, &TakeSession::closed, this, &WaveformPane::showIdle);
  connect(&_take, &TakeSession::stateChanged, this, &WaveformPane::showState);
  connect(&_take, &TakeSession::jumped, this, &WaveformPane::refresh);
  connect(&_take, &TakeSession::soundChanged, this, &WaveformPane::draw);
  connect(&_measured, &MeasuredTake::measured, this, &WaveformPane::draw);
  connect(&_reading, &WaveformReading::closeUpRead, this, &WaveformPane::draw);
  connect(&_reading, &WaveformReading::settled, this, &WaveformPane::show);
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

void WaveformPane::tick() {
  if (WindowSight::isSeen(_view)) refresh();
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

WaveformPane::View WaveformPane::inView() const {
  const TimeWindow& stretch = _view.waveform->stretch();
  const std::uint64_t end = _measured.analysis()->layout().frames();
  const auto from = static_cast<std::uint64_t>(stretch.from() * _rate);
  const auto to = static_cast<std::uint64_t>(std::llround(stretch.to() * _rate));
  const auto columns = static_cast<std::size_t>(std::max(0, _view.waveform->columnsWanted()));
  return {std::min(from, end), std::min(to, end), columns};
}

bool WaveformPane::isCloserThanMeasured(const View& view) const {
  const TakeLayout& layout = _measured.analysis()->layout();
  return view.to - view.from < view.columns * (layout.blockFrames() / TakeLayout::kBinsPerBlock);
}

Waveform WaveformPane::waveformOf(const View& view) {
  const auto closeUp =
      isCloserThanMeasured(view) ? _reading.closeUp(view.from, view.to, view.columns) : nullptr;
  if (!closeUp) return _measured.waveform(view.from, view.to, view.columns);
  Waveform wave = closeUp->at(_measured.shownWidth(), _measured.gain());
  if (_take.solo() == Solo::Side) MeasuredTake::showRightOnBoth(wave);
  return wave;
}

void WaveformPane::draw() {
  const bool isThere = _measured.analysis() && _view.waveform->length() > 0;
  if (!isThere) return _view.waveform->setColumns({});
  const Waveform wave = waveformOf(inView());
  show(wave);
  // What is still being measured changes before the medium has told the truth about it.
  if (!_measured.isWaveformComplete()) return _reading.cancelTruth();
  _reading.settle(wave, _measured.shownWidth(), _measured.gain());
}

void WaveformPane::show(const Waveform& wave) {
  WaveformColumns columns;
  columns.from = static_cast<double>(wave.from) / _rate;
  columns.to = static_cast<double>(wave.to) / _rate;
  columns.columns.reserve(wave.columns.size());
  for (const Waveform::Column& column : wave.columns) columns.columns.push_back(heard(column));
  _view.waveform->setColumns(std::move(columns));
}
