// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class QAction;
class QMenu;

/// A menu for assistive software. The toolkit's own reads the key of an entry as a part of its name
/// where that stands in the text, and takes the program for the parent of an open menu. Interface
/// thread.
class MenuAccessible : public QAccessibleWidget {
 public:
  /// Has all menus read this way from now on; calling again changes nothing.
  static void install();

  explicit MenuAccessible(QMenu& menu);

  /// The entry that opens it, or the window over which it opens.
  [[nodiscard]] QAccessibleInterface* parent() const override;
  /// The entries in their order, separators too.
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QString text(QAccessible::Text kind) const override;

 private:
  QMenu& _menu;
};

/// An entry of a menu: its text as a name, its key as a key, and pressing it, which closes the
/// menus as a click does. One that opens a menu has that for a child. Interface thread.
class MenuEntryAccessible : public QAccessibleObject, public QAccessibleActionInterface {
 public:
  explicit MenuEntryAccessible(QAction& action);

  [[nodiscard]] QAccessibleInterface* parent() const override;
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
  [[nodiscard]] QWindow* window() const override;
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::Role role() const override;
  [[nodiscard]] QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;
  [[nodiscard]] QStringList keyBindingsForAction(const QString& name) const override;

 private:
  [[nodiscard]] QMenu* menu() const;
  [[nodiscard]] QString keys() const;
  void press();

  QAction& _action;
};
