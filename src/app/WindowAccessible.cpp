// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowAccessible.h"

#include <QMenu>
#include <algorithm>

// With a role: the toolkit takes a plain widget for a filler, also where it is the window.
WindowAccessible::WindowAccessible(QWidget& window)
    : QAccessibleWidget(&window, QAccessible::Window) {}

QMenu* WindowAccessible::openMenu() const {
  const auto menus = widget()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
  const auto open = std::ranges::find_if(menus, &QMenu::isVisible);
  return open == menus.end() ? nullptr : *open;
}

int WindowAccessible::childCount() const {
  return QAccessibleWidget::childCount() + (openMenu() == nullptr ? 0 : 1);
}

QAccessibleInterface* WindowAccessible::child(int index) const {
  return index == QAccessibleWidget::childCount()
             ? QAccessible::queryAccessibleInterface(openMenu())
             : QAccessibleWidget::child(index);
}

int WindowAccessible::indexOfChild(const QAccessibleInterface* child) const {
  return child != nullptr && child->object() != nullptr && child->object() == openMenu()
             ? QAccessibleWidget::childCount()
             : QAccessibleWidget::indexOfChild(child);
}
