// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>
#include <functional>

#include "app/FileListCell.h"
#include "controls/KeyboardFocus.h"

/// The list of files: one column, one row selected at most. Return and the space bar are left to
/// the window. Interface thread.
class FileList : public QListView {
  Q_OBJECT

 public:
  explicit FileList(QWidget* parent = nullptr);

  /// Rows are at least this wide; what does not fit is scrolled to.
  void setColumnWidth(int width);
  [[nodiscard]] int columnWidth() const { return _cell->columnWidth(); }

  /// The row that is selected; -1: none.
  [[nodiscard]] int selectedRow() const;
  /// Selects this row alone, without scrolling; -1: none.
  void selectRow(int row);
  /// Changes the rows and stays where it was scrolled to.
  void keepPlace(const std::function<void()>& change);

  /// Whether the current row should show the focus ring.
  [[nodiscard]] bool showsFocus() const { return hasFocus() && _focus.isShown(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  FileListCell* _cell;
  KeyboardFocus _focus;
};
