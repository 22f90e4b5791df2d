// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>
#include <QSize>

/// A combo box that has room for the longest of its texts: the toolkit forgets what letters leave
/// free before and behind them, which is seen in large text. Interface thread.
class ChoiceField : public QComboBox {
  Q_OBJECT

 public:
  using QComboBox::QComboBox;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 private:
  [[nodiscard]] QSize forgotten() const;
};
