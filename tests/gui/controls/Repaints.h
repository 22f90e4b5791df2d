// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <QPaintEvent>
#include <QRegion>
#include <QWidget>

/// What a widget that is on the screen is asked to paint again.
class Repaints : public QObject {
 public:
  /// Paints at once what a widget has asked for.
  static void flush(const QWidget& widget) {
    QEvent request(QEvent::UpdateRequest);
    QApplication::sendEvent(widget.window(), &request);
  }
  /// Because of this action.
  template <class Action>
  static QRegion of(QWidget& widget, const Action& action) {
    flush(widget);
    const Repaints painted(widget);
    action();
    flush(widget);
    return painted._region;
  }

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) _region += static_cast<QPaintEvent*>(event)->region();
    return false;
  }

 private:
  explicit Repaints(QWidget& widget) { widget.installEventFilter(this); }

  QRegion _region;
};
