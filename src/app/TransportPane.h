// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "app/PlayerView.h"
#include "app/TakeSession.h"
#include "controls/J4SliderCell.h"

/// Shows which take is open and where it is; plays, pauses and seeks it. Interface thread.
class TransportPane : public QObject {
  Q_OBJECT

 public:
  /// Both outlive the pane.
  TransportPane(PlayerView& view, TakeSession& take, QObject* parent = nullptr);

  /// Plays or pauses; where the sound was changed during a pause it goes on at the slider. Does
  /// nothing while the button is disabled, so that a key may call it too.
  void playOrPause();
  void positionAdjusted(AdjustCause cause);
  /// Time and position as they are now; the slider is left alone while it is dragged.
  void refresh();
  void showState();
  void startTimer();
  void stopTimer() { _timerUpdateCurrentTime.stop(); }

 private:
  void showIdle();
  void showOpening();
  void showName();
  void showTake();
  void setPlayable(bool isPlayable);
  void showButton(bool isPlaying);
  void seek(double position);
  void rewind();

  PlayerView& _view;
  TakeSession& _take;
  std::shared_ptr<J4SliderCell> _sliderTimeCell;
  QTimer _timerUpdateCurrentTime{this};
  bool _isSeeking = false;  ///< a seek was asked for and the player has not played since
};
