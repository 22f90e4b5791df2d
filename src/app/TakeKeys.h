// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include "app/PlayerView.h"
#include "app/WindowMenu.h"

/// What the menu and its keys do to place, gain and width: they move the controls, as a hand that
/// goes there would. Without a take they do nothing. Interface thread.
class TakeKeys : public QObject {
  Q_OBJECT

 public:
  /// Degrees that a key turns the dial by.
  static constexpr double kWidthStep = 5;

  /// Both outlive it.
  TakeKeys(WindowMenu& menu, PlayerView& view, QObject* parent = nullptr);

 private:
  void connectPlace();
  void connectSound();
  void goTo(double seconds);
  void goBy(double seconds) { goTo(_view.waveform->position() + seconds); }
  static void turnBy(Adjustable& control, double step);

  WindowMenu& _menu;
  PlayerView& _view;
};
