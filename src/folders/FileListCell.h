// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

/// Draws one row of the file list: icon and name, on a rounded ground where it is selected, with a
/// ring where it has the focus by the keyboard, and a bar at the left where it is the take that is
/// loaded. Interface thread.
class FileListCell : public QStyledItemDelegate {
  Q_OBJECT

 public:
  /// The name under which the list has the cell; also its object name.
  static constexpr const char* CELL_ID = "fileListCellID";  // NOLINT(readability-identifier-naming)
  /// The least of a row; a large font takes more.
  static constexpr int kHeight = 32;

  explicit FileListCell(QObject* parent = nullptr);

  /// How wide a row wants to be. Drawn is what the list has room for.
  [[nodiscard]] int columnWidth() const { return _columnWidth; }
  void setColumnWidth(int width) { _columnWidth = width; }

  /// Where icon and name lie in a row.
  [[nodiscard]] static QRect imgFileIcon(const QRect& row);
  [[nodiscard]] static QRect lblFileName(const QRect& row);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;

 private:
  static void drawGround(QPainter& painter, const QStyleOptionViewItem& option);
  static void drawMark(QPainter& painter, const QRect& row);
  static void drawName(QPainter& painter, const QStyleOptionViewItem& option, const QString& name);

  int _columnWidth = 0;
};
