// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPointF>
#include <QWidget>

/// What a user's hands and eyes do to a control: real events at places given in the control's own
/// coordinates, y downward, and pictures of it.
class Hands {
 public:
  /// Shows the control at this size as a window of its own, laid out and painted once.
  static void show(QWidget& control, QSize size);

  /// Mouse events straight to the control, so at fractions of a pixel too.
  static void press(QWidget& control, QPointF at, Qt::MouseButton button = Qt::LeftButton);
  static void secondPress(QWidget& control, QPointF at);
  static void move(QWidget& control, QPointF to);
  /// Without a button.
  static void hover(QWidget& control, QPointF to);
  static void release(QWidget& control, QPointF at, Qt::MouseButton button = Qt::LeftButton);
  static void click(QWidget& control, QPointF at);
  static void doubleClick(QWidget& control, QPointF at);

  /// `eighths` of a degree, 120 a notch away from the user.
  static void wheel(QWidget& control, int eighths, Qt::KeyboardModifiers modifiers = {});

  /// The control drawn over black at a scale.
  static QImage picture(QWidget& control, double scale);
  /// The colour of a picture at a place in the control's coordinates.
  static QColor colorAt(const QImage& picture, QPointF place);
};
