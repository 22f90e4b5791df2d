// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <QObject>
#include <optional>

#include "app/PlayerView.h"
#include "app/TakeSession.h"

/// The loop from A to B, as its marks in the waveform, its button and its menu entry set and show
/// it. Interface thread.
///
/// The button marks A where the take is, then B, which begins the loop, then clears both. A loop
/// that is begun elsewhere than where the take is takes it to A; from then on where it goes is the
/// user's: before the loop it plays on into it, behind the loop it plays on.
class LoopPane : public QObject {
  Q_OBJECT

 public:
  /// All three outlive the pane.
  LoopPane(PlayerView& view, QAction& action, TakeSession& take, QObject* parent = nullptr);

  /// Sets A, or B, or clears both.
  void press();
  void clear();
  /// Loops this stretch, in seconds.
  void mark(double from, double to);

 private:
  void setEnabled(bool isEnabled);
  void show();
  void showMarks();
  [[nodiscard]] double rate() const;

  PlayerView& _view;
  QAction& _action;
  TakeSession& _take;
  std::optional<double> _a;  ///< seconds: waits for its B
};
