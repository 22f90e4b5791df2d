// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <limits>

#include "controls/KeyboardFocus.h"
#include "controls/PeakHold.h"

/// What stands over a level meter: the greatest level since it was cleared, as a figure, and under
/// it a lamp that is red once full scale was passed. It is a button: a click or a key clears both,
/// as far as its owner does so. For assistive software figure and lamp are a button each, that do
/// the same; that of the figure has it as its value. Interface thread.
class ClipLamp : public QAbstractButton {
  Q_OBJECT

 public:
  explicit ClipLamp(QWidget* parent = nullptr);

  /// What assistive software calls the figure and the lamp.
  void setNames(const QString& figure, const QString& lamp);
  void setPeak(const PeakHold& peak);
  [[nodiscard]] bool isLit() const { return _isLit; }
  /// The figure, "–" for none.
  [[nodiscard]] const QString& figure() const { return _figure; }

  /// The lamp, under the figure.
  [[nodiscard]] QRectF lamp() const;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] QFont figureFont() const;
  [[nodiscard]] QRectF figurePlace() const;
  void describe();

  /// The figure as a button of its own; what it shows is drawn by the lamp.
  class FigureButton;

  QString _figure;
  QString _printed;  ///< the same with the minus sign that is printed
  double _tenths = std::numeric_limits<double>::quiet_NaN();  ///< that the figure tells
  bool _isLit = false;
  FigureButton* _figureButton;
  KeyboardFocus _focus;
};
