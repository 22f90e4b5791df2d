// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

#include "controls/ReadableFigure.h"

/// A figure for assistive software: its number as a value, its number and unit as a text; to be
/// read, not to be changed. It sends no events: nobody wants thirty figures a second read out.
/// Interface thread.
class FigureAccessible : public QAccessibleWidget,
                         public QAccessibleValueInterface,
                         public QAccessibleTextInterface {
 public:
  /// `figure` is of the widget itself.
  FigureAccessible(QWidget& widget, const ReadableFigure& figure,
                   QAccessible::Role role = QAccessible::StaticText);

  void* interface_cast(QAccessible::InterfaceType type) override;
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QAccessible::State state() const override;

  /// Not a number where there is no figure.
  [[nodiscard]] QVariant currentValue() const override;
  void setCurrentValue(const QVariant& /*value*/) override {}
  [[nodiscard]] QVariant minimumValue() const override { return {}; }
  [[nodiscard]] QVariant maximumValue() const override { return {}; }
  [[nodiscard]] QVariant minimumStepSize() const override { return {}; }

  [[nodiscard]] QString text(int start, int end) const override;
  [[nodiscard]] int characterCount() const override;
  [[nodiscard]] QString attributes(int offset, int* start, int* end) const override;
  [[nodiscard]] QRect characterRect(int offset) const override;
  [[nodiscard]] int offsetAtPoint(const QPoint& /*point*/) const override { return 0; }
  [[nodiscard]] int cursorPosition() const override { return 0; }
  void setCursorPosition(int /*position*/) override {}
  void scrollToSubstring(int /*start*/, int /*end*/) override {}
  [[nodiscard]] int selectionCount() const override { return 0; }
  void selection(int index, int* start, int* end) const override;
  void addSelection(int /*start*/, int /*end*/) override {}
  void removeSelection(int /*index*/) override {}
  void setSelection(int /*index*/, int /*start*/, int /*end*/) override {}

 private:
  const ReadableFigure& _figure;
};
