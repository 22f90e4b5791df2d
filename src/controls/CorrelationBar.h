// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <optional>

#include "controls/ReadableFigure.h"

/// A correlation from -1 to 1 on a level bar, over its scale; a mark at the value, the bar filled
/// from 0. Interface thread.
class CorrelationBar : public QWidget, public ReadableFigure {
  Q_OBJECT

 public:
  explicit CorrelationBar(QWidget* parent = nullptr);

  /// Clamped to -1..1; none where there is no sound.
  void setValue(std::optional<double> value);
  [[nodiscard]] std::optional<double> value() const { return _value; }
  /// The value as `text` has it: who shows it need not write what stays. None for none.
  [[nodiscard]] static std::optional<int> hundredths(std::optional<double> value);
  /// "+0.53", "-1.00", "–" for none.
  [[nodiscard]] static QString text(std::optional<double> value);

  [[nodiscard]] QString figureText() const override { return text(_value); }
  [[nodiscard]] std::optional<double> figure() const override { return _value; }

  /// Where the value's mark stands.
  [[nodiscard]] double xOf(double value) const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {80, sizeHint().height()}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<double> _value;
};
