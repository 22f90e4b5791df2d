// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QWidget>

/// What a user sees, for fixtures to stand on.
class Screen {
 protected:
  /// The top-level window of this kind that is shown; null where there is none.
  template <class Window>
  static Window* shown() {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      auto* const found = qobject_cast<Window*>(widget);
      if (found != nullptr && found->isVisible()) return found;
    }
    return nullptr;
  }
};
