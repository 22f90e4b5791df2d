// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFocusEvent>
#include <QPainter>
#include <QRectF>

/// When a control shows that it has the keyboard: after it was reached by key or program, or once
/// a key moved it; not after a mere click. Interface thread.
class KeyboardFocus {
 public:
  /// To be told of every focus-in event.
  void gained(Qt::FocusReason reason);
  /// A key moved the control.
  void used() { _isShown = true; }
  [[nodiscard]] bool isShown() const { return _isShown; }

  /// The mark: a ring just inside the edge of a round knob, so nothing around it moves or is cut.
  static void drawRing(QPainter& painter, const QRectF& knob);

 private:
  bool _isShown = false;
};
