// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/LoopPane.h"

#include <algorithm>
#include <cmath>
#include <utility>

LoopPane::LoopPane(PlayerView& view, QAction& action, TakeSession& take, QObject* parent)
    : QObject(parent), _view(view), _action(action), _take(take) {
  connect(_view.btnLoop, &QAbstractButton::clicked, this, &LoopPane::press);
  connect(&_action, &QAction::triggered, this, &LoopPane::press);
  connect(_view.waveform, &WaveformViewer::stretchMarked, this, &LoopPane::mark);
  connect(&_take, &TakeSession::loopChanged, this, &LoopPane::show);
  connect(&_take, &TakeSession::opened, this, [this] { setEnabled(true); });
  for (const auto goes : {&TakeSession::stillOpening, &TakeSession::closed}) {
    connect(&_take, goes, this, [this] { setEnabled(false); });
  }
  setEnabled(false);
}

void LoopPane::setEnabled(bool isEnabled) {
  _view.btnLoop->setEnabled(isEnabled);
  _action.setEnabled(isEnabled);
  clear();
}

double LoopPane::rate() const {
  const auto reader = _take.reader();
  return reader ? reader->header().SampleRate : 0;
}

void LoopPane::press() {
  if (!_take.isOpen() || _take.loop()) return clear();
  const double now = _view.waveform->position();
  if (_a) return mark(std::min(*_a, now), std::max(*_a, now));
  _a = now;
  show();
}

void LoopPane::clear() {
  _a.reset();
  if (_take.loop()) return _take.setLoop(std::nullopt);
  show();
}

void LoopPane::mark(double from, double to) {
  const double perSecond = rate();
  if (!(perSecond > 0)) return;
  _a.reset();
  const auto frame = [perSecond](double seconds) {
    return static_cast<std::uint64_t>(std::llround(std::max(0.0, seconds) * perSecond));
  };
  _take.setLoop(FrameLoop{frame(from), frame(to)});
  show();
  const auto& loop = _take.loop();
  const bool isInside = loop && loop->holds(frame(_take.playedTime()));
  if (loop && !isInside) _take.seekToFrame(loop->first);
}

// Whatever pressed them, they show what is.
void LoopPane::show() {
  if (_take.loop()) _a.reset();
  const bool isOn = _take.loop().has_value();
  _view.btnLoop->setChecked(isOn);
  _action.setChecked(isOn);
  QString tip = tr("Loop: mark A at the play head");
  if (_a) tip = tr("Loop: mark B at the play head");
  if (isOn) tip = tr("Loop: clear A and B");
  _view.btnLoop->setToolTip(tip);
  showMarks();
}

void LoopPane::showMarks() {
  const auto& loop = _take.loop();
  const double perSecond = rate();
  if (loop && perSecond > 0) {
    const double end = static_cast<double>(loop->end) / perSecond;
    _view.waveform->setMarks(LoopMarks::Marks{static_cast<double>(loop->first) / perSecond, end});
  } else if (_a) {
    _view.waveform->setMarks(LoopMarks::Marks{*_a, std::nullopt});
  } else {
    _view.waveform->setMarks(std::nullopt);
  }
}
