// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include "app/MeasuredTake.h"
#include "app/PlayerView.h"
#include "app/TakeSession.h"

/// Shows how loud the open take is at its width and gain: at the play head, and as a whole. While
/// it is still being measured, what is known by then, and how much that is. Interface thread.
class LoudnessPane : public QObject {
  Q_OBJECT

 public:
  /// From here on the true peak is one to look at, dBTP, and from here on over.
  static constexpr double kNear = -1.0;
  static constexpr double kFull = 0.0;

  /// All three outlive the pane.
  LoudnessPane(PlayerView& view, TakeSession& take, MeasuredTake& measured,
               QObject* parent = nullptr);

  /// All figures, as they are now.
  void refresh();
  /// Those of the place of the play head.
  void refreshHead();

 private:
  void showState();
  void tick();
  void showTake();
  void showProgress();

  PlayerView& _view;
  FieldView& _field;
  TakeSession& _take;
  MeasuredTake& _measured;
  QTimer _timerLoudness{this};
};
