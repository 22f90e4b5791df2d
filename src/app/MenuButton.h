// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QToolButton>

/// A button that opens a menu. Assistive software opens it without waiting for its end, for which
/// the toolkit's own has it wait. It is not marked any more where the pointer went into the menu,
/// of which the toolkit does not always tell. Interface thread.
class MenuButton : public QToolButton {
  Q_OBJECT

 public:
  explicit MenuButton(QWidget* parent);

  /// Opened by a press; outlives the button, or goes with it.
  void setPopup(QMenu& menu);

 private:
  void menuClosed();
};
