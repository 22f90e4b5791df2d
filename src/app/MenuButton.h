// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>

/// A button that opens a menu. Assistive software opens it without waiting for its end, for which
/// the toolkit's own has it wait. Interface thread.
class MenuButton : public QToolButton {
  Q_OBJECT

 public:
  explicit MenuButton(QWidget* parent);
};
