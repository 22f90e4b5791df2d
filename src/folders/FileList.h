// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>
#include <vector>

#include "controls/KeyboardFocus.h"
#include "folders/FileListCell.h"
#include "folders/TypedName.h"

/// The list of files: one column, one row selected at most unless several are allowed. Return, the
/// space bar, Left and Right are left to the window. Interface thread.
class FileList : public QListView {
  Q_OBJECT

 public:
  explicit FileList(QWidget* parent = nullptr);

  /// As wide as this the rows would show every name whole. The list is as wide as the window gives
  /// it and never scrolled sideways: longer names are shortened in the middle.
  void setColumnWidth(int width);
  [[nodiscard]] int columnWidth() const { return _cell->columnWidth(); }

  /// Allows several rows to be selected: Shift, Ctrl, Ctrl+A; Ctrl and the space bar on the current
  /// one. Their ground then has a colour of its own. They can be dragged to other programs, as
  /// files.
  void setSeveral(bool isAllowed);

  /// The row that is selected, of several the current one; -1: none.
  [[nodiscard]] int selectedRow() const;
  /// Those that are selected, from the top.
  [[nodiscard]] std::vector<int> selectedRows() const;
  /// Selects this row alone, without scrolling; -1: none.
  void selectRow(int row);
  /// Selects these rows, which are in order, without scrolling; `current` is the current one, or
  /// -1.
  void selectRows(const std::vector<int>& rows, int current);
  /// Where it is scrolled to, to be gone back to after a change of the rows.
  [[nodiscard]] int place() const;
  void goToPlace(int place);
  /// Goes to the name that is typed; see `TypedName`.
  void keyboardSearch(const QString& letters) override;

 signals:
  /// Other rows are selected, or none. Not told of rows that come and go.
  void selectionMoved();
  /// A menu of what is selected is wanted, at this place of the screen.
  void menuRequested(const QPoint& place);

 protected:
  /// What goes on with a name that is typed is none of the window's keys.
  bool event(QEvent* event) override;
  /// The current row shows the focus ring as long as the keyboard is what is used.
  void initViewItemOption(QStyleOptionViewItem* option) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void updateGeometries() override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void selectCurrent();

  FileListCell* _cell;
  KeyboardFocus _focus;
  TypedName _typed;
  bool _isSeveral = false;  ///< more than one is selected
};
