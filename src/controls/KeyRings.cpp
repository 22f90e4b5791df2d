// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/KeyRings.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QStyle>
#include <utility>

namespace {

constexpr const char* kProperty = "keys";

// Held for a click or for another program's sake.
bool isModifier(int key) {
  return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
         key == Qt::Key_Super_L || key == Qt::Key_Super_R;
}

bool hasRing(const QWidget& widget) {
  return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
         qobject_cast<const QComboBox*>(&widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(&widget) != nullptr;
}

}  // namespace

KeyRings::KeyRings(QApplication& application) : QObject(&application) {
  application.installEventFilter(this);
}

void KeyRings::install(QApplication& application) {
  if (application.findChild<KeyRings*>({}, Qt::FindDirectChildrenOnly) != nullptr) return;
  new KeyRings(application);
}

bool KeyRings::areShownOn(const QWidget& widget) {
  return widget.property(kProperty).toBool();
}

// All that happens comes by here. Of a key that is a shortcut nothing else is sent.
bool KeyRings::eventFilter(QObject* object, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
      if (!isModifier(static_cast<QKeyEvent*>(event)->key())) show(true);
      break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      show(false);
      break;
    case QEvent::FocusIn:
      if (auto* const widget = qobject_cast<QWidget*>(object)) {
        gained(*widget, static_cast<QFocusEvent*>(event)->reason());
      }
      break;
    default:
      break;
  }
  return false;
}

void KeyRings::show(bool areShown) {
  if (areShown == _areShown) return;
  _areShown = areShown;
  if (QWidget* const widget = QApplication::focusWidget()) mark(*widget);
}

// A dialog that is shown tells its first widget of a Tab that nobody pressed; that widget has no
// focus yet. Nor did anybody press one where a button that has been clicked turns grey and hands
// the focus on.
void KeyRings::gained(QWidget& widget, Qt::FocusReason reason) {
  if (reason == Qt::MouseFocusReason) _areShown = false;
  const bool isByKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                       reason == Qt::ShortcutFocusReason;
  const QWidget* const before = std::exchange(_focused, &widget).data();
  const bool isHandedOn = before != nullptr && !before->isEnabled();
  if (isByKey && widget.hasFocus() && !isHandedOn) _areShown = true;
  mark(widget);
}

void KeyRings::mark(QWidget& widget) const {
  if (!hasRing(widget) || areShownOn(widget) == _areShown) return;
  widget.setProperty(kProperty, _areShown);
  if (auto* const list = qobject_cast<QAbstractItemView*>(&widget)) {
    list->viewport()->update();
    return;
  }
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
  widget.update();
}
