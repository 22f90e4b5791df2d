// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/SoloPane.h"

SoloPane::SoloPane(const Switch& mid, const Switch& side, TakeSession& take, QObject* parent)
    : QObject(parent), _mid(mid), _side(side), _take(take) {
  connectSwitch(_mid, Solo::Mid);
  connectSwitch(_side, Solo::Side);
  for (const auto changes : {&TakeSession::opened, &TakeSession::stillOpening, &TakeSession::closed,
                             &TakeSession::soundChanged}) {
    connect(&_take, changes, this, qOverload<>(&SoloPane::show));
  }
  show();
}

void SoloPane::connectSwitch(const Switch& with, Solo solo) {
  connect(&with.button, &QAbstractButton::clicked, this, [this, solo] { press(solo); });
  connect(&with.action, &QAction::triggered, this, [this, solo] { press(solo); });
}

void SoloPane::press(Solo solo) {
  _take.setSolo(_take.solo() == solo ? Solo::None : solo);
  show();
}

void SoloPane::show() {
  show(_mid, Solo::Mid);
  show(_side, Solo::Side);
}

// Whatever pressed them, they show what is.
void SoloPane::show(const Switch& on, Solo solo) {
  const bool isOn = _take.solo() == solo;
  const bool isRaw = _take.isRawMidSide();
  on.button.setEnabled(isRaw);
  on.action.setEnabled(isRaw);
  on.button.setChecked(isOn);
  on.action.setChecked(isOn);
}
