// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

#include "app/TabularLabel.h"

/// A value that may be typed where it stands. To assistive software it is a text, with plain minus
/// signs, that can be pressed, as a hand does, while there is something to type. It tells of no
/// change where it has an accessible name, which nobody is told. Interface thread.
class ValueLabel : public TabularLabel {
  Q_OBJECT

 public:
  explicit ValueLabel(QWidget* parent = nullptr);

  /// Asked whenever somebody wants to know; before, nothing can be typed.
  void setTypable(std::function<bool()> isTypable) { _isTypable = std::move(isTypable); }
  [[nodiscard]] bool isTypable() const { return _isTypable && _isTypable(); }

 signals:
  /// Also while nothing can be typed.
  void pressed();

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  std::function<bool()> _isTypable;
};
