// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/ListAccessible.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QListView>
#include <utility>

#include "controls/AccessibleFactory.h"

namespace {

QAccessibleInterface* makeReadableList(QListView& list) {
  return new ListAccessible(list);
}

}  // namespace

void ListAccessible::install() {
  AccessibleFactory::install<QListView, makeReadableList>();
}

ListAccessible::ListAccessible(QListView& list)
    : QAccessibleWidget(&list, QAccessible::List), _list(list) {}

ListAccessible::~ListAccessible() {
  for (const QAccessible::Id row : std::as_const(_rows)) {
    QAccessible::deleteAccessibleInterface(row);
  }
}

QModelIndex ListAccessible::indexOf(int row) const {
  const QAbstractItemModel* const model = _list.model();
  return model == nullptr ? QModelIndex()
                          : model->index(row, _list.modelColumn(), _list.rootIndex());
}

QAccessibleInterface* ListAccessible::parent() const {
  auto* const popup = qobject_cast<QComboBox*>(_list.window()->parentWidget());
  const bool isOfPopup = popup != nullptr && popup->view() == &_list;
  return isOfPopup ? QAccessible::queryAccessibleInterface(popup) : QAccessibleWidget::parent();
}

int ListAccessible::childCount() const {
  const QAbstractItemModel* const model = _list.model();
  return model == nullptr ? 0 : model->rowCount(_list.rootIndex());
}

QAccessibleInterface* ListAccessible::child(int row) const {
  const QModelIndex index = indexOf(row);
  if (!index.isValid()) return nullptr;
  if (const QAccessible::Id known = _rows.value(index)) {
    return QAccessible::accessibleInterface(known);
  }
  if (_rows.size() > childCount()) forgetGoneRows();
  auto* const made = new RowAccessible(_list, index);
  // The registry keeps it. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
  _rows.insert(index, QAccessible::registerAccessibleInterface(made));
  return made;
}

void ListAccessible::forgetGoneRows() const {
  _rows.removeIf([](const auto& row) {
    if (row.key().isValid()) return false;
    QAccessible::deleteAccessibleInterface(row.value());
    return true;
  });
}

QAccessibleInterface* ListAccessible::childAt(int x, int y) const {
  const QModelIndex index = _list.indexAt(_list.viewport()->mapFromGlobal(QPoint(x, y)));
  return index.isValid() ? child(index.row()) : nullptr;
}

int ListAccessible::indexOfChild(const QAccessibleInterface* child) const {
  const auto* const row = dynamic_cast<const RowAccessible*>(child);
  return row == nullptr || row->parent() != this ? -1 : row->row();
}

QAccessibleInterface* ListAccessible::focusChild() const {
  return _list.hasFocus() ? child(_list.currentIndex().row()) : nullptr;
}

RowAccessible::RowAccessible(QListView& list, const QModelIndex& index)
    : _list(list), _index(index) {}

QWindow* RowAccessible::window() const {
  const QAccessibleInterface* const list = parent();
  return list == nullptr ? nullptr : list->window();
}

QAccessibleInterface* RowAccessible::parent() const {
  return QAccessible::queryAccessibleInterface(&_list);
}

QString RowAccessible::text(QAccessible::Text kind) const {
  if (kind == QAccessible::Description) {
    return _index.data(Qt::AccessibleDescriptionRole).toString();
  }
  if (kind != QAccessible::Name) return {};
  const QString told = _index.data(Qt::AccessibleTextRole).toString();
  return told.isEmpty() ? _index.data(Qt::DisplayRole).toString() : told;
}

QRect RowAccessible::rect() const {
  const QRect local = _list.visualRect(_index);
  return {_list.viewport()->mapToGlobal(local.topLeft()), local.size()};
}

QAccessible::State RowAccessible::state() const {
  QAccessible::State state;
  const bool isInView = _list.viewport()->rect().intersects(_list.visualRect(_index));
  const bool isCurrent = _index == _list.currentIndex();
  state.invisible = !isValid() || !_list.isVisible() || !isInView;
  state.disabled = !_list.isEnabled();
  state.selectable = state.focusable = true;
  state.selected = _list.selectionModel() != nullptr && _list.selectionModel()->isSelected(_index);
  state.focused = isCurrent && _list.hasFocus();
  state.active = isCurrent;
  return state;
}

void* RowAccessible::interface_cast(QAccessible::InterfaceType type) {
  const bool isAction = type == QAccessible::ActionInterface;
  return isAction ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList RowAccessible::actionNames() const {
  const bool canBeUsed = isValid() && _list.isEnabled();
  return canBeUsed ? QStringList{pressAction(), setFocusAction()} : QStringList{};
}

void RowAccessible::doAction(const QString& name) {
  if (!actionNames().contains(name)) return;
  makeCurrent();
  if (name == pressAction()) press();
}

void RowAccessible::makeCurrent() {
  _list.setFocus(Qt::OtherFocusReason);
  _list.setCurrentIndex(_index);
}

// Who owns the list has the say over what Return does.
void RowAccessible::press() {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent key(type, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(&_list, &key);
  }
}
