// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include "app/MeasuredTake.h"
#include "app/PlayerView.h"
#include "app/TakeSession.h"
#include "controls/Adjustable.h"

/// Shows the open take as a waveform, as it is heard at its width and gain, and seeks in it: what
/// is done to the waveform is done to the position slider. Interface thread.
class WaveformPane : public QObject {
  Q_OBJECT

 public:
  /// All three outlive the pane.
  WaveformPane(PlayerView& view, TakeSession& take, MeasuredTake& measured,
               QObject* parent = nullptr);

  /// The play head as it is now.
  void refresh();
  /// The columns of the stretch in view, from what has been measured; touches no file.
  void draw();

 private:
  void showTake();
  void showIdle();
  void showState();
  void moved(AdjustCause cause);
  [[nodiscard]] double playHead() const;

  PlayerView& _view;
  TakeSession& _take;
  MeasuredTake& _measured;
  double _rate = 0;  ///< frames a second
  QTimer _timerWaveform{this};
};
