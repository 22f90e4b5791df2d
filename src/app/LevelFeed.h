// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "app/StageView.h"
#include "app/TakeSession.h"

/// Feeds the level meters: measures, thirty times a second while a take plays, what is about to be
/// heard, through a reader of its own. Interface thread.
class LevelFeed : public QObject {
  Q_OBJECT

 public:
  /// Seconds from one look to the next; the single-precision value is kept on purpose.
  static constexpr double kInterval = 0.033333335F;

  /// Both outlive the feed.
  LevelFeed(StageView& view, TakeSession& take, QObject* parent = nullptr);

  /// Shows the levels of the next `interval` seconds, as far as they are at hand.
  void update(double interval);
  /// Shows the magnitude of linear levels in dB: another scale than that of `update`, on purpose.
  void showMagnitudes(double left, double right);
  void showState();
  void startTimer();
  /// Lets the reading ahead rest, so that a medium that failed is tried again by the next start.
  void stopTimer();

 private:
  void clear();
  void drop();

  StageView& _view;
  TakeSession& _take;
  std::unique_ptr<WaveFileReader> _reader;  ///< null without a take
  QTimer _timerLevel{this};
};
