// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class QMenu;

/// A window for assistive software: its parts and, while it is open, its menu, which the toolkit
/// itself leaves out of the tree. Interface thread.
class WindowAccessible : public QAccessibleWidget {
 public:
  explicit WindowAccessible(QWidget& window);

  [[nodiscard]] int childCount() const override;
  /// The open menu comes after the parts.
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;

 private:
  /// Of the menus whose parent is the window; null: none is open.
  [[nodiscard]] QMenu* openMenu() const;
};
