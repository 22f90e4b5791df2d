// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "app/HeardFrames.h"
#include "app/StageView.h"
#include "app/TakeSession.h"
#include "controls/PeakHold.h"

/// Feeds the level meters: measures, thirty times a second while a take plays, what is about to be
/// heard, through a reader of its own, and keeps the peaks until somebody clears them. Interface
/// thread.
///
/// A level is the greatest magnitude of the decoded stretch. By the recorder's rule it is what the
/// greatest Mid and the greatest Side would give if they came together, which lights the left where
/// a raw take has a source on the right, unless one of them is heard alone; no peaks are kept then.
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
  /// Clears the peaks of both channels.
  void clearPeaks();
  void setByRecordersRule(bool isByRule);
  [[nodiscard]] bool isByRecordersRule() const { return _isByRule; }
  void startTimer();
  /// Lets the reading ahead rest, so that a medium that failed is tried again by the next start.
  void stopTimer();

 private:
  void clear();
  void drop();
  void begin();
  void wait(double time, const HeardSound& sound);
  void updateByRule(double time, double interval);
  void updateTruly(double time, double interval);
  void keepPeaks(double left, double right);
  void showPeaks();

  StageView& _view;
  TakeSession& _take;
  std::unique_ptr<HeardFrames> _heard;  ///< null without a take
  PeakHold _peakLeft;
  PeakHold _peakRight;
  double _measuredTo = 0;  ///< seconds: what is heard next
  bool _isByRule = false;
  QTimer _timerLevel{this};
};
