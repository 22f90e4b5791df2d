// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/LoudnessPane.h"

#include <algorithm>

#include "app/WindowSight.h"

namespace {

constexpr int kFiguresRefresh = 100;  // ms, a block of the analysis

FigureLine::Look lookOf(const std::optional<double>& truePeak) {
  if (!truePeak || *truePeak <= LoudnessPane::kNear) return FigureLine::Look::Strong;
  return *truePeak > LoudnessPane::kFull ? FigureLine::Look::Over : FigureLine::Look::Warning;
}

}  // namespace

LoudnessPane::LoudnessPane(PlayerView& view, TakeSession& take, MeasuredTake& measured,
                           QObject* parent)
    : QObject(parent), _view(view), _field(*view.stage->field), _take(take), _measured(measured) {
  _timerLoudness.setObjectName(QStringLiteral("timerLoudness"));
  connect(&_timerLoudness, &QTimer::timeout, this, &LoudnessPane::tick);
  connect(&_take, &TakeSession::stateChanged, this, &LoudnessPane::showState);
  connect(&_take, &TakeSession::soundChanged, this, &LoudnessPane::refresh);
  connect(&_take, &TakeSession::closed, this, &LoudnessPane::showState);
  connect(&_measured, &MeasuredTake::measured, this, &LoudnessPane::refresh);
  connect(_view.waveform, &WaveformViewer::valueAdjusted, this, &LoudnessPane::refreshHead);
  connect(_view.sliderTime, &Slider::valueAdjusted, this, &LoudnessPane::refreshHead);
  _field.wholeTake->setLook(FigureLine::Look::Strong);
  refresh();
}

void LoudnessPane::showState() {
  if (_take.state() == TakeSession::State::Playing) {
    _timerLoudness.start(kFiguresRefresh);
  } else {
    _timerLoudness.stop();
  }
  refreshHead();
}

void LoudnessPane::refresh() {
  showTake();
  showProgress();
  refreshHead();
}

void LoudnessPane::showTake() {
  const auto& analysis = _measured.analysis();
  const TakeFigures figures =
      analysis ? analysis->at(_measured.width(), _measured.gain()) : TakeFigures();
  _field.wholeTake->setFigure(figures.integratedLufs);
  _field.truePeak->setFigure(figures.truePeakDbtp);
  _field.truePeak->setLook(lookOf(figures.truePeakDbtp));
}

// In place of the units, of what goes on changing while more becomes known.
void LoudnessPane::showProgress() {
  QString note;
  if (_measured.isRunning()) {
    note = tr("%1 %").arg(std::min(99, static_cast<int>(_measured.progress() * 100)));
  }
  _field.wholeTake->setNote(note);
  _field.truePeak->setNote(note);
}

void LoudnessPane::tick() {
  if (WindowSight::isSeen(_view)) refreshHead();
}

void LoudnessPane::refreshHead() {
  const auto& analysis = _measured.analysis();
  if (!analysis) {
    _field.momentary->setFigure(std::nullopt);
    return _field.shortTerm->setFigure(std::nullopt);
  }
  const double rate = analysis->layout().sampleRate();
  const auto frame = static_cast<std::uint64_t>(_view.waveform->position() * rate);
  const std::uint64_t last = std::max<std::uint64_t>(1, analysis->layout().frames()) - 1;
  const int width = _measured.width();
  const double gain = _measured.gain();
  _field.momentary->setFigure(analysis->momentaryLufs(width, gain, std::min(frame, last)));
  _field.shortTerm->setFigure(analysis->shortTermLufs(width, gain, std::min(frame, last)));
}
