// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class MainView;

/// The window for assistive software: its parts and, while it is open, its menu, which the toolkit
/// itself leaves out of the tree. Interface thread.
class WindowAccessible : public QAccessibleWidget {
 public:
  /// Has windows read this way from now on; calling again changes nothing.
  static void install();

  explicit WindowAccessible(MainView& view);

  [[nodiscard]] int childCount() const override;
  /// The open menu comes after the parts.
  [[nodiscard]] QAccessibleInterface* child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;

 private:
  [[nodiscard]] bool isMenuOpen() const;

  const MainView& _view;
};
