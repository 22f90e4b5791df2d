// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FileListCell.h"

#include <QAbstractScrollArea>
#include <QIcon>
#include <QPainter>
#include <algorithm>

#include "controls/Colors.h"
#include "folders/FileListModel.h"
#include "folders/RowMarks.h"

namespace {

constexpr int kIconLeft = 12;
constexpr int kIconSide = 20;
constexpr int kNameLeft = 44;
constexpr int kNameRight = 8;
constexpr int kMargin = 4;  // over and under a large name
constexpr double kRadius = 3.0;
constexpr int kMarkWidth = 3;
constexpr int kMarkInset = 7;  // from the top and the bottom of the row

int widthOfView(const QStyleOptionViewItem& row) {
  const auto* const view = qobject_cast<const QAbstractScrollArea*>(row.widget);
  return view == nullptr ? row.rect.width() : view->viewport()->width();
}

}  // namespace

FileListCell::FileListCell(QObject* parent) : QStyledItemDelegate(parent) {
  setObjectName(QLatin1String(CELL_ID));
}

QRect FileListCell::imgFileIcon(const QRect& row) {
  return {row.left() + kIconLeft, row.top() + (row.height() - kIconSide) / 2, kIconSide, kIconSide};
}

QRect FileListCell::lblFileName(const QRect& row) {
  return row.adjusted(kNameLeft, 0, 0, 0);
}

void FileListCell::drawGround(QPainter& painter, const QStyleOptionViewItem& option) {
  const QRectF ground = QRectF(option.rect).adjusted(0.0, 1.0, 0.0, -1.0);
  if (option.state.testFlag(QStyle::State_Selected)) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(option.backgroundBrush);
    painter.drawRoundedRect(ground, kRadius, kRadius);
  }
  constexpr auto kRing = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
  if ((option.state & kRing) == kRing) {
    painter.setPen(QPen(Colors::focusRing(), 2.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(ground.adjusted(1.0, 1.0, -1.0, -1.0), kRadius, kRadius);
  }
}

void FileListCell::drawMark(QPainter& painter, const QRect& row) {
  const QRectF mark(row.left(), row.top() + kMarkInset, kMarkWidth, row.height() - 2 * kMarkInset);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Colors::WHITE());
  painter.drawRoundedRect(mark, kMarkWidth / 2.0, kMarkWidth / 2.0);
}

// Shortened in the middle: takes and their exports differ at their ends.
void FileListCell::drawName(QPainter& painter, const QStyleOptionViewItem& option,
                            const QString& name) {
  const QRect place = lblFileName(option.rect).adjusted(0, 0, -kNameRight, 0);
  painter.setPen(Colors::WHITE());
  painter.drawText(place, Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(name, Qt::ElideMiddle, place.width()));
}

void FileListCell::paint(QPainter* painter, const QStyleOptionViewItem& whole,
                         const QModelIndex& index) const {
  QStyleOptionViewItem option = whole;
  option.rect.setWidth(std::min(whole.rect.width(), widthOfView(whole)));
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  drawGround(*painter, option);
  if (index.data(FileListModel::kLoadedRole).toBool()) drawMark(*painter, option.rect);
  index.data(Qt::DecorationRole).value<QIcon>().paint(painter, imgFileIcon(option.rect));
  // Dimmed, a text on the ground of a selected row has too little contrast.
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  painter->setPen(isSelected ? Colors::WHITE() : Colors::dimText());
  option.rect.setWidth(option.rect.width() - RowMarks::draw(*painter, option.rect, index));
  drawName(*painter, option, index.data(Qt::DisplayRole).toString());
  painter->restore();
}

QSize FileListCell::sizeHint(const QStyleOptionViewItem& option,
                             const QModelIndex& /*index*/) const {
  return {_columnWidth, std::max(kHeight, option.fontMetrics.height() + 2 * kMargin)};
}
