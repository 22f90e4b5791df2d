// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/MenuButton.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QCursor>
#include <QEvent>

#include "controls/AccessibleFactory.h"

namespace {

class MenuButtonAccessible : public QAccessibleWidget {
 public:
  explicit MenuButtonAccessible(MenuButton& button)
      : QAccessibleWidget(&button, QAccessible::ButtonMenu), _button(button) {}

  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.hasPopup = true;
    return state;
  }
  [[nodiscard]] QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (_button.isEnabled()) names = QStringList{pressAction(), showMenuAction()} + names;
    return names;
  }
  void doAction(const QString& name) override {
    if (name != pressAction() && name != showMenuAction()) return QAccessibleWidget::doAction(name);
    QMetaObject::invokeMethod(&_button, &MenuButton::showMenu, Qt::QueuedConnection);
  }

 private:
  MenuButton& _button;
};

QAccessibleInterface* makeReadableMenuButton(MenuButton& button) {
  return new MenuButtonAccessible(button);
}

}  // namespace

MenuButton::MenuButton(QWidget* parent) : QToolButton(parent) {
  AccessibleFactory::install<MenuButton, makeReadableMenuButton>();
}

void MenuButton::setPopup(QMenu& menu) {
  setMenu(&menu);
  setPopupMode(InstantPopup);
  connect(&menu, &QMenu::aboutToHide, this, &MenuButton::menuClosed);
}

void MenuButton::menuClosed() {
  if (!underMouse() || rect().contains(mapFromGlobal(QCursor::pos()))) return;
  QEvent leave(QEvent::Leave);
  QCoreApplication::sendEvent(this, &leave);
}
