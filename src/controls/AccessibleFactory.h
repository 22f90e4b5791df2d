// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QObject>
#include <QString>

/// Tells the toolkit how to make a control readable for assistive software. Interface thread.
class AccessibleFactory {
 public:
  /// From now on `make(control)` makes the interface of every `Control`; the toolkit owns what is
  /// returned, and asks others where it is null. A control's constructor calls it: the toolkit
  /// keeps a factory only once, so calling again changes nothing.
  template <class Control, QAccessibleInterface* (*make)(Control&)>
  static void install() {
    QAccessible::installFactory(&ask<Control, make>);
  }

 private:
  template <class Control, QAccessibleInterface* (*make)(Control&)>
  static QAccessibleInterface* ask(const QString& /*className*/, QObject* object) {
    auto* const control = qobject_cast<Control*>(object);
    return control != nullptr ? make(*control) : nullptr;
  }
};
