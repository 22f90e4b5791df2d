// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "folders/FileList.h"

#include <QKeyEvent>
#include <QScrollBar>

FileList::FileList(QWidget* parent) : QListView(parent), _cell(new FileListCell(this)) {
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

int FileList::selectedRow() const {
  const QModelIndexList rows = selectionModel()->selectedIndexes();
  return rows.isEmpty() ? -1 : rows.first().row();
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
}

void FileList::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  const bool isAside = key == Qt::Key_Left || key == Qt::Key_Right;
  const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (key == Qt::Key_Space || isReturn || isAside) return event->ignore();
  _focus.used();
  QListView::keyPressEvent(event);
  viewport()->update();
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
