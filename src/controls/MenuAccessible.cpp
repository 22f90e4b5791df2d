// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/MenuAccessible.h"

#include <QAction>
#include <QApplication>
#include <QMenu>

#include "controls/AccessibleFactory.h"

namespace {

QAccessibleInterface* makeReadableMenu(QMenu& menu) {
  return new MenuAccessible(menu);
}

QAccessibleInterface* makeReadableEntry(QAction& action) {
  return new MenuEntryAccessible(action);
}

// Which menu shows an action, and be it as what opens a further one.
QMenu* menuOf(const QAction& action) {
  for (QObject* const object : action.associatedObjects()) {
    if (auto* const menu = qobject_cast<QMenu*>(object)) return menu;
  }
  return nullptr;
}

// Without what stands after a tab, and without the marks of underlined letters; two of them are one
// that is meant.
QString nameIn(const QString& text) {
  QString name;
  bool isMarked = false;
  for (const QChar letter : text.section(u'\t', 0, 0)) {
    isMarked = letter == u'&' && !isMarked;
    if (!isMarked) name += letter;
  }
  return name;
}

// A menu in a menu is closed before the one that opened it.
void closeMenus() {
  QWidget* open = QApplication::activePopupWidget();
  while (open != nullptr && open->close() && open != QApplication::activePopupWidget()) {
    open = QApplication::activePopupWidget();
  }
}

}  // namespace

void MenuAccessible::install() {
  AccessibleFactory::install<QMenu, makeReadableMenu>();
  AccessibleFactory::install<QAction, makeReadableEntry>();
}

MenuAccessible::MenuAccessible(QMenu& menu)
    : QAccessibleWidget(&menu, QAccessible::PopupMenu), _menu(menu) {}

QAccessibleInterface* MenuAccessible::parent() const {
  QAction* const opener = _menu.menuAction();
  if (menuOf(*opener) != nullptr) return QAccessible::queryAccessibleInterface(opener);
  QWidget* const under = _menu.parentWidget();
  if (under == nullptr) return QAccessibleWidget::parent();
  return QAccessible::queryAccessibleInterface(under->window());
}

int MenuAccessible::childCount() const {
  return static_cast<int>(_menu.actions().size());
}

QAccessibleInterface* MenuAccessible::child(int index) const {
  const QList<QAction*> entries = _menu.actions();
  if (index < 0 || index >= entries.size()) return nullptr;
  return QAccessible::queryAccessibleInterface(entries[index]);
}

QAccessibleInterface* MenuAccessible::childAt(int x, int y) const {
  QAction* const entry = _menu.actionAt(_menu.mapFromGlobal(QPoint(x, y)));
  return entry == nullptr ? nullptr : QAccessible::queryAccessibleInterface(entry);
}

int MenuAccessible::indexOfChild(const QAccessibleInterface* child) const {
  auto* const entry = child == nullptr ? nullptr : qobject_cast<QAction*>(child->object());
  return entry == nullptr ? -1 : static_cast<int>(_menu.actions().indexOf(entry));
}

QString MenuAccessible::text(QAccessible::Text kind) const {
  const QString own = QAccessibleWidget::text(kind);
  return kind == QAccessible::Name && own.isEmpty() ? nameIn(_menu.title()) : own;
}

MenuEntryAccessible::MenuEntryAccessible(QAction& action)
    : QAccessibleObject(&action), _action(action) {}

QMenu* MenuEntryAccessible::menu() const {
  return menuOf(_action);
}

QAccessibleInterface* MenuEntryAccessible::parent() const {
  return menu() == nullptr ? nullptr : QAccessible::queryAccessibleInterface(menu());
}

int MenuEntryAccessible::childCount() const {
  return _action.menu() == nullptr ? 0 : 1;
}

QAccessibleInterface* MenuEntryAccessible::child(int index) const {
  return index == 0 && childCount() == 1 ? QAccessible::queryAccessibleInterface(_action.menu())
                                         : nullptr;
}

int MenuEntryAccessible::indexOfChild(const QAccessibleInterface* child) const {
  return child != nullptr && childCount() == 1 && child->object() == _action.menu() ? 0 : -1;
}

QWindow* MenuEntryAccessible::window() const {
  const QAccessibleInterface* const shown = parent();
  return shown == nullptr ? nullptr : shown->window();
}

QString MenuEntryAccessible::text(QAccessible::Text kind) const {
  if (kind == QAccessible::Name) return nameIn(_action.text());
  return kind == QAccessible::Accelerator ? keys() : QString();
}

QString MenuEntryAccessible::keys() const {
  const QString named = _action.text().section(u'\t', 1);
  return named.isEmpty() ? _action.shortcut().toString(QKeySequence::NativeText) : named;
}

QRect MenuEntryAccessible::rect() const {
  const QMenu* const shown = menu();
  if (shown == nullptr) return {};
  const QRect local = shown->actionGeometry(&_action);
  return {shown->mapToGlobal(local.topLeft()), local.size()};
}

QAccessible::Role MenuEntryAccessible::role() const {
  return _action.isSeparator() ? QAccessible::Separator : QAccessible::MenuItem;
}

QAccessible::State MenuEntryAccessible::state() const {
  QAccessible::State state;
  const QMenu* const shown = menu();
  state.invisible = shown == nullptr || !shown->isVisible() || !_action.isVisible();
  state.disabled = _action.isSeparator() || !_action.isEnabled();
  state.focusable = !state.disabled;
  state.focused = shown != nullptr && shown->activeAction() == &_action;
  state.checkable = _action.isCheckable();
  state.checked = _action.isChecked();
  state.hasPopup = _action.menu() != nullptr;
  return state;
}

void* MenuEntryAccessible::interface_cast(QAccessible::InterfaceType type) {
  const bool isAction = type == QAccessible::ActionInterface;
  return isAction ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList MenuEntryAccessible::actionNames() const {
  if (_action.isSeparator() || !_action.isEnabled()) return {};
  return {_action.menu() == nullptr ? pressAction() : showMenuAction()};
}

void MenuEntryAccessible::doAction(const QString& name) {
  if (!actionNames().contains(name)) return;
  if (name == pressAction()) return press();
  if (QMenu* const shown = menu()) shown->setActiveAction(&_action);
}

void MenuEntryAccessible::press() {
  closeMenus();
  _action.trigger();
}

QStringList MenuEntryAccessible::keyBindingsForAction(const QString& name) const {
  const bool isKnown = actionNames().contains(name) && !keys().isEmpty();
  return isKnown ? QStringList{keys()} : QStringList{};
}
