// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMouseEvent>
#include <QPointF>

/// How often a button was clicked in a row. The toolkit tells a second press from a first, but
/// calls the third of a row a first again; here it is the third. Interface thread.
class ClickCounter {
 public:
  /// To be told of every press, double clicks included; returns the number of this press, 1 or
  /// more.
  int press(const QMouseEvent& event);

  /// The number of the latest press; its release has the same number. 0 before the first.
  [[nodiscard]] int count() const { return _count; }

 private:
  [[nodiscard]] bool continuesRow(const QMouseEvent& event) const;

  int _count = 0;
  quint64 _time = 0;
  QPointF _place;
};
