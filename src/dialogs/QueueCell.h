// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>
#include <QStyledItemDelegate>

/// Draws a line of the export queue: the take's name, its state at the right, and while it runs a
/// thin bar under both. Interface thread.
class QueueCell : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  /// Pixels that a state has in a row of this width: as many as it needs, three fifths at most.
  [[nodiscard]] static int roomFor(const QString& state, const QFont& font, int rowWidth);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
};
