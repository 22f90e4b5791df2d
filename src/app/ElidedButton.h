// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

/// A button that is nothing but its text, flush left and cut short where it does not fit.
/// Interface thread.
class ElidedButton : public QPushButton {
  Q_OBJECT

 public:
  explicit ElidedButton(QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
};
