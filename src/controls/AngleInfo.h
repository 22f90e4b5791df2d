// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>
#include <utility>

/// One label of the dial. Lengths in device-independent pixels; interface thread.
class AngleInfo {
 public:
  AngleInfo(QString text, double angle, QPointF offset)
      : _text(std::move(text)), _angle(angle), _offset(offset) {}

  [[nodiscard]] const QString& text() const { return _text; }
  /// In degrees of stereo width.
  [[nodiscard]] double angle() const { return _angle; }
  /// Rightward and downward from the place that the angle gives.
  [[nodiscard]] QPointF offset() const { return _offset; }
  /// Where the label was last drawn, y upward; empty before.
  [[nodiscard]] QRectF frame() const { return _frame; }
  void setFrame(const QRectF& frame) { _frame = frame; }

 private:
  QString _text;
  double _angle;
  QPointF _offset;
  QRectF _frame;
};
