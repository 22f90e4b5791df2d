// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "dialogs/QueueCell.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/Colors.h"
#include "controls/KeyRings.h"
#include "dialogs/QueueModel.h"

namespace {

constexpr int kSide = 10;
constexpr int kGap = 16;        // between name and state
constexpr int kCellMargin = 9;  // over and under the text
constexpr int kBar = 3;
constexpr double kRadius = 3.0;

void drawGround(QPainter& painter, const QStyleOptionViewItem& option) {
  const QRectF ground = QRectF(option.rect).adjusted(0.0, 1.0, 0.0, -1.0);
  if (option.state.testFlag(QStyle::State_Selected)) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Colors::selection());
    painter.drawRoundedRect(ground, kRadius, kRadius);
  }
  if (!option.state.testFlag(QStyle::State_HasFocus)) return;
  if (option.widget == nullptr || !KeyRings::areShownOn(*option.widget)) return;
  painter.setPen(QPen(Colors::focusRing(), 2.0));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(ground.adjusted(1.0, 1.0, -1.0, -1.0), kRadius, kRadius);
}

// A name is cut in its middle.
void drawTexts(QPainter& painter, const QRect& row, const QModelIndex& index) {
  const QFontMetrics metrics = painter.fontMetrics();
  const QString state = index.data(QueueModel::kStateRole).toString();
  const bool hasFailed = index.data(QueueModel::kFailedRole).toBool();
  const int stateWidth = QueueCell::roomFor(state, painter.font(), row.width());
  const QRect name = row.adjusted(0, 0, -stateWidth - kGap, 0);
  constexpr int kLine = Qt::AlignVCenter | Qt::TextSingleLine;
  painter.setPen(Colors::WHITE());
  painter.drawText(name, kLine,
                   metrics.elidedText(index.data().toString(), Qt::ElideMiddle, name.width()));
  painter.setPen(hasFailed ? Colors::warning() : Colors::dimText());
  painter.drawText(row, kLine | Qt::AlignRight,
                   metrics.elidedText(state, Qt::ElideRight, stateWidth));
}

void drawBar(QPainter& painter, const QRect& row, double done) {
  const QRectF bar(row.left(), row.bottom() - kBar - 2, row.width(), kBar);
  QRectF reached = bar;
  reached.setWidth(bar.width() * done);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Colors::line());
  painter.drawRoundedRect(bar, kBar / 2.0, kBar / 2.0);
  painter.setBrush(Colors::WHITE());
  painter.drawRoundedRect(reached, kBar / 2.0, kBar / 2.0);
}

}  // namespace

// A text that is a part of a pixel wider than its room is cut.
int QueueCell::roomFor(const QString& state, const QFont& font, int rowWidth) {
  const double needed = std::ceil(QFontMetricsF(font).horizontalAdvance(state));
  return std::min(static_cast<int>(needed), rowWidth * 3 / 5);
}

void QueueCell::paint(QPainter* painter, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  drawGround(*painter, option);
  const QRect row = option.rect.adjusted(kSide, 0, -kSide, 0);
  drawTexts(*painter, row, index);
  const double done = index.data(QueueModel::kDoneRole).toDouble();
  if (index.data(QueueModel::kRunningRole).toBool()) drawBar(*painter, row, done);
  painter->restore();
}

QSize QueueCell::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& /*index*/) const {
  return {0, option.fontMetrics.height() + 2 * kCellMargin};
}
