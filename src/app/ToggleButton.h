// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>

/// A button that is on or off. Assistive software clicks it, as a hand does: the toolkit's own only
/// changes what it shows, and nobody is told of a click. Interface thread.
class ToggleButton : public QToolButton {
  Q_OBJECT

 public:
  explicit ToggleButton(QWidget* parent);
};
