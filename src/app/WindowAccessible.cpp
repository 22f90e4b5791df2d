// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/WindowAccessible.h"

#include "app/MainView.h"
#include "controls/AccessibleFactory.h"

namespace {

QAccessibleInterface* makeInterface(MainView& view) {
  return new WindowAccessible(view);
}

}  // namespace

void WindowAccessible::install() {
  AccessibleFactory::install<MainView, makeInterface>();
}

// With a role: the toolkit takes a plain widget for a filler, also where it is the window.
WindowAccessible::WindowAccessible(MainView& view)
    : QAccessibleWidget(&view, QAccessible::Window), _view(view) {}

bool WindowAccessible::isMenuOpen() const {
  return _view.menu != nullptr && _view.menu->isVisible();
}

int WindowAccessible::childCount() const {
  return QAccessibleWidget::childCount() + (isMenuOpen() ? 1 : 0);
}

QAccessibleInterface* WindowAccessible::child(int index) const {
  return isMenuOpen() && index == QAccessibleWidget::childCount()
             ? QAccessible::queryAccessibleInterface(_view.menu)
             : QAccessibleWidget::child(index);
}

int WindowAccessible::indexOfChild(const QAccessibleInterface* child) const {
  return isMenuOpen() && child != nullptr && child->object() == _view.menu
             ? QAccessibleWidget::childCount()
             : QAccessibleWidget::indexOfChild(child);
}
