// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/TakeKeys.h"

TakeKeys::TakeKeys(WindowMenu& menu, PlayerView& view, QObject* parent)
    : QObject(parent), _menu(menu), _view(view) {
  connectPlace();
  connectSound();
}

void TakeKeys::connectPlace() {
  const WaveformViewer& wave = *_view.waveform;
  const auto go = [this](QAction* action, double seconds) {
    connect(action, &QAction::triggered, this, [this, seconds] { goBy(seconds); });
  };
  go(_menu.actionBack, -wave.fineStep());
  go(_menu.actionForward, wave.fineStep());
  go(_menu.actionFarBack, -wave.coarseStep());
  go(_menu.actionFarForward, wave.coarseStep());
  connect(_menu.actionBeginning, &QAction::triggered, this, [this] { goTo(0); });
  connect(_menu.actionEnd, &QAction::triggered, this, [this] { goTo(_view.waveform->length()); });
}

void TakeKeys::connectSound() {
  J4GainSlider& gain = *_view.stage->sliderGain;
  AngleViewer& dial = *_view.stage->sliderStereo;
  const auto turn = [this](QAction* action, Adjustable& control, double step) {
    connect(action, &QAction::triggered, this, [&control, step] { turnBy(control, step); });
  };
  turn(_menu.actionLouder, gain, gain.fineStep());
  turn(_menu.actionSofter, gain, -gain.fineStep());
  turn(_menu.actionWider, dial, kWidthStep);
  turn(_menu.actionNarrower, dial, -kWidthStep);
}

void TakeKeys::goTo(double seconds) {
  _view.waveform->adjust(seconds, AdjustCause::Key);
}

void TakeKeys::turnBy(Adjustable& control, double step) {
  if (control.isAdjustable()) control.adjust(control.stepOrigin() + step, AdjustCause::Key);
}
