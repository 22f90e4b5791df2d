// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QBrush>
#include <QPainter>
#include <QRectF>
#include <QString>

/// The two pictures of a level meter, drawn from one scale of colours: "levelmeter", the bright
/// bar, and "levelmeter2", the same bar dimmed. Drawn anew at every size, so sharp at every scale.
/// Interface thread.
class LevelMeterPicture {
 public:
  /// A name that is neither draws nothing.
  explicit LevelMeterPicture(QString name = {});

  [[nodiscard]] const QString& name() const { return _name; }
  /// Fills `frame`, y downward; the corners are round.
  void draw(QPainter& painter, const QRectF& frame) const;

 private:
  QString _name;
  double _opacity;
  // Of the last frame: the next one is mostly the same.
  mutable QRectF _frame;
  mutable QBrush _brush;
};
