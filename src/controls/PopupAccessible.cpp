// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/PopupAccessible.h"

#include <QAbstractItemView>
#include <QComboBox>

#include "controls/AccessibleFactory.h"
#include "controls/ListAccessible.h"

namespace {

// One that is edited is a field, as the toolkit has it.
QAccessibleInterface* makeReadablePopup(QComboBox& popup) {
  return popup.isEditable() ? nullptr : new PopupAccessible(popup);
}

}  // namespace

void PopupAccessible::install() {
  AccessibleFactory::install<QComboBox, makeReadablePopup>();
  ListAccessible::install();
}

PopupAccessible::PopupAccessible(QComboBox& popup)
    : QAccessibleWidget(&popup, QAccessible::ComboBox), _popup(popup) {}

QString PopupAccessible::text(QAccessible::Text kind) const {
  const bool hasName = !_popup.accessibleName().isEmpty();
  const bool isEntry = kind == QAccessible::Value || kind == QAccessible::Description ||
                       (kind == QAccessible::Name && !hasName);
  return isEntry ? _popup.currentText() : QAccessibleWidget::text(kind);
}

QAccessible::State PopupAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.expandable = true;
  state.expanded = _popup.view()->isVisible();
  state.collapsed = !state.expanded;
  return state;
}

QAccessibleInterface* PopupAccessible::child(int index) const {
  return index == 0 ? QAccessible::queryAccessibleInterface(_popup.view()) : nullptr;
}

int PopupAccessible::indexOfChild(const QAccessibleInterface* child) const {
  return child != nullptr && child->object() == _popup.view() ? 0 : -1;
}

QStringList PopupAccessible::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  if (_popup.isEnabled()) names.prepend(showMenuAction());
  return names;
}

void PopupAccessible::doAction(const QString& name) {
  if (name != showMenuAction()) return QAccessibleWidget::doAction(name);
  if (_popup.isEnabled()) _popup.showPopup();
}
