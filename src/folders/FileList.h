// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>

#include "controls/KeyboardFocus.h"
#include "folders/FileListCell.h"
#include "folders/TypedName.h"

/// The list of files: one column, one row selected at most. Return, the space bar, Left
/// and Right are left to the window. Interface thread.
class FileList : public QListView {
  Q_OBJECT

 public:
  explicit FileList(QWidget* parent = nullptr);

  /// As wide as this the rows would show every name whole. The list is as wide as the window gives
  /// it and never scrolled sideways: longer names are shortened in the middle.
  void setColumnWidth(int width);
  [[nodiscard]] int columnWidth() const { return _cell->columnWidth(); }

  /// The row that is selected; -1: none.
  [[nodiscard]] int selectedRow() const;
  /// Selects this row alone, without scrolling; -1: none.
  void selectRow(int row);
  /// Where it is scrolled to, to be gone back to after a change of the rows.
  [[nodiscard]] int place() const;
  void goToPlace(int place);
  /// Goes to the name that is typed; see `TypedName`.
  void keyboardSearch(const QString& letters) override;

 protected:
  /// What goes on with a name that is typed is none of the window's keys.
  bool event(QEvent* event) override;
  /// The current row shows the focus ring as long as the keyboard is what is used.
  void initViewItemOption(QStyleOptionViewItem* option) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void updateGeometries() override;

 private:
  FileListCell* _cell;
  KeyboardFocus _focus;
  TypedName _typed;
};
