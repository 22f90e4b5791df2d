// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetricsF>
#include <QModelIndex>
#include <QPainter>
#include <QRect>

/// The right end of a row of the file list: the duration, its digits each as wide as the widest,
/// and before it a check mark where an export of the recording is there. Interface thread.
class RowMarks {
 public:
  /// Draws them in this row, and returns how much of its width is theirs: 0 where there is nothing
  /// to draw. The painter has the colour of the text.
  static int draw(QPainter& painter, const QRect& row, const QModelIndex& index);

 private:
  static double drawDuration(QPainter& painter, const QRect& row, const QString& text);
  static void drawCheck(QPainter& painter, const QRectF& place);
};
