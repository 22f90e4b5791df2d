// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FileList.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

#include "controls/Colors.h"

#include "controls/ListAccessible.h"

FileList::FileList(QWidget* parent) : QListView(parent), _cell(new FileListCell(this)) {
  ListAccessible::install();
  setItemDelegate(_cell);
  setUniformItemSizes(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setFrameShape(NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalScrollMode(ScrollPerPixel);
  setVerticalScrollMode(ScrollPerPixel);
  setAccessibleName(tr("Files"));
}

void FileList::setColumnWidth(int width) {
  if (width == _cell->columnWidth()) return;
  _cell->setColumnWidth(width);
  scheduleDelayedItemsLayout();
}

void FileList::setSeveral(bool isAllowed) {
  setSelectionMode(isAllowed ? ExtendedSelection : SingleSelection);
  setDragEnabled(isAllowed);
}

// The current row has the focus ring, whether or not it is one of them.
int FileList::selectedRow() const {
  const QItemSelection& selection = selectionModel()->selection();
  if (selection.isEmpty()) return -1;
  const QModelIndex current = currentIndex();
  return current.isValid() ? current.row() : selection.first().top();
}

std::vector<int> FileList::selectedRows() const {
  std::vector<int> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::ranges::sort(rows);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

void FileList::selectRows(const std::vector<int>& rows, int current) {
  QItemSelection selection;
  for (auto row = rows.begin(); row != rows.end();) {
    auto end = row;
    while (end + 1 != rows.end() && *(end + 1) == *end + 1) ++end;
    selection.select(model()->index(*row, 0), model()->index(*end, 0));
    row = end + 1;
  }
  setAutoScroll(false);
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  selectionModel()->setCurrentIndex(model()->index(current, 0), QItemSelectionModel::NoUpdate);
  setAutoScroll(true);
}

void FileList::selectRow(int row) {
  const QModelIndex index = model()->index(row, 0);
  setAutoScroll(false);
  if (index.isValid()) {
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
  } else {
    selectionModel()->clear();
  }
  setAutoScroll(true);
}

int FileList::place() const {
  return verticalScrollBar()->value();
}

void FileList::goToPlace(int place) {
  doItemsLayout();
  verticalScrollBar()->setValue(place);
}

bool FileList::event(QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride) return QListView::event(event);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  const bool isLetter = !key.text().isEmpty() && key.text().front().isPrint() &&
                        (key.modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
  if (!isLetter || key.key() == Qt::Key_Space || !_typed.isUnderWay()) {
    return QListView::event(event);
  }
  event->accept();
  return true;
}

void FileList::keyboardSearch(const QString& letters) {
  const int row = _typed.type(letters, *model(), selectedRow());
  if (row < 0) return;
  selectRow(row);
  scrollTo(model()->index(row, 0));
}

void FileList::initViewItemOption(QStyleOptionViewItem* option) const {
  QListView::initViewItemOption(option);
  option->state.setFlag(QStyle::State_KeyboardFocusChange, hasFocus() && _focus.isShown());
  option->backgroundBrush = _isSeveral ? Colors::severalSelected() : Colors::selection();
}

void FileList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QListView::selectionChanged(selected, deselected);
  const QItemSelection& selection = selectionModel()->selection();
  const bool isSeveral =
      selection.size() > 1 || (!selection.isEmpty() && selection.first().height() > 1);
  if (isSeveral != _isSeveral) viewport()->update();
  _isSeveral = isSeveral;
  emit selectionMoved();
}

void FileList::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool isAside = key == Qt::Key_Left || key == Qt::Key_Right;
  const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
  const bool isToggle =
      selectionMode() == ExtendedSelection && event->modifiers() == Qt::ControlModifier;
  const bool isSpace = key == Qt::Key_Space && !isToggle;
  if (isSpace || isReturn || isAside) return event->ignore();
  _focus.used();
  QListView::keyPressEvent(event);
  const bool isPlain = event->modifiers() == Qt::NoModifier;
  if (isPlain && (key == Qt::Key_Home || key == Qt::Key_Up)) selectCurrent();
  viewport()->update();
}

// By the keyboard the menu stands at the current row, wherever the pointer is.
void FileList::contextMenuEvent(QContextMenuEvent* event) {
  const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
  const QPoint place = isByKey ? visualRect(currentIndex()).center() : event->pos();
  const bool isOnRow = isByKey || indexAt(place).isValid();
  if (isOnRow && selectedRow() >= 0) emit menuRequested(viewport()->mapToGlobal(place));
}

// With the keyboard the toolkit gives the list a first row that is current and not selected: on it
// these keys would do nothing.
void FileList::selectCurrent() {
  if (selectedRow() < 0 && currentIndex().isValid()) selectRow(currentIndex().row());
}

// Without a bar it could still be scrolled by a wheel or by the keyboard.
void FileList::updateGeometries() {
  QListView::updateGeometries();
  horizontalScrollBar()->setRange(0, 0);
}

void FileList::focusInEvent(QFocusEvent* event) {
  _focus.gained(event->reason());
  QListView::focusInEvent(event);
}
