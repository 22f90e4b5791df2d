// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/RowMarks.h"

#include <QFontMetricsF>
#include <QPen>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "controls/Colors.h"
#include "folders/FileListModel.h"

namespace {

constexpr double kRight = 10;      // from the end of the row
constexpr double kGap = 12;        // between the marks, and to the name
constexpr double kCheckSide = 14;  // of the check mark
constexpr double kCheckPen = 1.8;

double digitWidth(const QFontMetricsF& metrics) {
  double widest = 0;
  for (char digit = '0'; digit <= '9'; ++digit) {
    widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
  }
  return widest;
}

// A column of them is a column of check marks, too: those of an hour and more push theirs aside.
constexpr int kUsualLetters = 5;

}  // namespace

double RowMarks::drawDuration(QPainter& painter, const QRect& row, const QString& text) {
  const QFontMetricsF metrics(painter.font());
  const double digit = digitWidth(metrics);
  const double colon = metrics.horizontalAdvance(u':');
  const double base = row.top() + (row.height() - metrics.height()) / 2 + metrics.ascent();
  double x = row.right() + 1 - kRight;
  for (auto i = text.size(); i-- > 0;) {
    const QChar letter = text[i];
    const double width = letter == u':' ? colon : digit;
    x -= width;
    const double inset = (width - metrics.horizontalAdvance(letter)) / 2;
    painter.drawText(QPointF(x + inset, std::round(base)), QString(letter));
  }
  const double usual = (kUsualLetters - 1) * digit + colon;
  return std::max(usual, row.right() + 1 - kRight - x) + kRight;
}

void RowMarks::drawCheck(QPainter& painter, const QRectF& place) {
  constexpr double kLow = 0.78;
  constexpr double kHigh = 0.25;
  const auto at = [&](double x, double y) {
    return place.topLeft() + QPointF(x * place.width(), y * place.height());
  };
  painter.setPen(QPen(Colors::safe(), kCheckPen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(QPolygonF({at(0.1, 0.55), at(0.38, kLow), at(0.9, kHigh)}));
}

int RowMarks::draw(QPainter& painter, const QRect& row, const QModelIndex& index) {
  const QString duration = index.data(FileListModel::kDurationRole).toString();
  if (duration.isEmpty()) return 0;
  double taken = drawDuration(painter, row, duration) + kGap;
  if (index.data(FileListModel::kExportedRole).toBool()) {
    const double left = row.right() + 1 - taken - kCheckSide;
    const double top = row.top() + (row.height() - kCheckSide) / 2;
    drawCheck(painter, {left, top, kCheckSide, kCheckSide});
    taken += kCheckSide + kGap;
  }
  return static_cast<int>(std::ceil(taken));
}
