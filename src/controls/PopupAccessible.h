// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class QComboBox;

/// A pop-up button for assistive software, named as it is called. The toolkit's own interface takes
/// the chosen entry for the name, as this one does where there is no other. The entry is its value
/// and description, and the one that is selected in the list below it. Interface thread.
class PopupAccessible : public QAccessibleWidget {
 public:
  /// Has the toolkit's pop-ups, which cannot ask for it themselves, read this way from now on. To
  /// be called before they are made; calling again changes nothing.
  static void install();

  explicit PopupAccessible(QComboBox& popup);

  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QAccessible::State state() const override;

  /// One child, the list of entries.
  [[nodiscard]] int childCount() const override { return 1; }
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;

  /// Showing the menu is what a press does too.
  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  QComboBox& _popup;
};
