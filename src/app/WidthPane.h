// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <memory>
#include <optional>

#include "app/MeasuredTake.h"
#include "app/StageView.h"
#include "app/TakeSession.h"

/// Shows beside the dial what a width costs: on its arc from where on the open take would come
/// close to full scale and over it at this gain; while the dial is turned or pointed at, the
/// loudness and the true peak at that width. Interface thread.
///
/// The arc is worked out anew only where more is known or the gain is another one.
class WidthPane : public QObject {
  Q_OBJECT

 public:
  /// How long the figures stay after a turn, ms.
  static constexpr int kAfterTurn = 1500;

  /// All three outlive the pane.
  WidthPane(StageView& view, TakeSession& take, MeasuredTake& measured, QObject* parent = nullptr);

 private:
  void refresh();
  void turn();
  void showCosts();
  void showFigures();
  [[nodiscard]] std::shared_ptr<const TakeAnalysis> known() const;
  [[nodiscard]] std::optional<int> askedWidth() const;

  StageView& _view;
  TakeSession& _take;
  MeasuredTake& _measured;
  std::shared_ptr<const TakeAnalysis> _shown;  ///< what the arc shows, at this gain
  double _shownGain = 0;
  QTimer _timerTurned{this};
};
