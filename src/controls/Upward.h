// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QPointF>
#include <QRectF>

/// Geometry with y upward: the origin is the lower left corner of a view, and the y() of a
/// rectangle is its lower edge. Widgets count y downward; `height` is the height of the widget, all
/// lengths are device-independent pixels. Stateless; any thread.
class Upward {
 public:
  /// There and back: turning twice gives the point again.
  static QPointF point(QPointF p, double height) { return {p.x(), height - p.y()}; }
  static QRectF rect(const QRectF& r, double height) {
    return {r.x(), height - r.y() - r.height(), r.width(), r.height()};
  }

  /// Whether an area holds a point, both upward. Left and top edge belong to the area, right and
  /// bottom edge do not: on the screen these are exactly the pixels that the area covers, and two
  /// areas side by side share none. An empty area holds nothing.
  static bool covers(const QRectF& area, QPointF p) {
    return p.x() >= area.x() && p.x() < area.x() + area.width() && p.y() > area.y() &&
           p.y() <= area.y() + area.height();
  }

  /// From here on the painter counts y upward. Text would stand on its head.
  static void turn(QPainter& painter, double height) {
    painter.translate(0.0, height);
    painter.scale(1.0, -1.0);
  }
};
