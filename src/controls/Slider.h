// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QRectF>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <optional>

#include "controls/Adjustable.h"
#include "controls/J4SliderCell.h"
#include "controls/KeyboardFocus.h"
#include "controls/StepInput.h"

/// A slider over a range of doubles, drawn by a J4SliderCell, which also says whether it is
/// upright. A press on the knob takes hold of it; a press elsewhere brings it there. What is done
/// to the value meanwhile does not count: the release is where the hand was. A release that a
/// dialog keeps away is made up for. Interface thread.
class Slider : public QWidget, public Adjustable, public SliderCellView {
  Q_OBJECT

 public:
  /// What a horizontal slider draws stands so many pixels above its middle.
  static constexpr int kLift = 2;

  /// Horizontal, 0 to 1, at 0, with a cell of its own.
  explicit Slider(QWidget* parent = nullptr);
  ~Slider() override;

  [[nodiscard]] std::shared_ptr<J4SliderCell> cell() const { return _cell; }
  /// A cell is for one slider: the one that had it before is without. Without a cell nothing is
  /// drawn.
  void setCell(std::shared_ptr<J4SliderCell> cell);

  [[nodiscard]] double minimum() const { return _minimum; }
  [[nodiscard]] double maximum() const { return _maximum; }
  /// A range whose end lies before its start is that start alone. Clamps the value.
  void setRange(double minimum, double maximum);
  [[nodiscard]] double value() const { return _value; }
  /// The value truncated toward zero.
  [[nodiscard]] std::int64_t integerValue() const { return static_cast<std::int64_t>(_value); }
  /// Clamped to the range; not a number is ignored. Does not emit `valueAdjusted`.
  void setValue(double value);
  /// Where the value lies in the range, 0 to 1; 0 in an empty range.
  [[nodiscard]] double fraction() const override;
  /// For keys and wheel, in units of the value; 0 is a hundredth or a tenth of the range, as it is
  /// from the start.
  void setSteps(double fine, double coarse);

  /// Where the cell draws the track and the knob, y downward.
  [[nodiscard]] QRectF barRect() const;
  [[nodiscard]] QRectF knobRect() const;
  /// Whether the knob should show the focus ring.
  [[nodiscard]] bool showsFocus() const override { return hasFocus() && _focus.isShown(); }
  [[nodiscard]] bool isPointedAt() const override;

  [[nodiscard]] QSizeF viewSize() const override { return size(); }
  void cellChanged() override;
  void cellTaken() override;

  [[nodiscard]] bool isAdjustable() const override { return isEnabled(); }
  [[nodiscard]] double adjustableValue() const override { return _value; }
  [[nodiscard]] double lowest() const override { return _minimum; }
  [[nodiscard]] double highest() const override { return _maximum; }
  [[nodiscard]] double fineStep() const override;
  [[nodiscard]] double coarseStep() const override;
  /// Per cent of the range.
  [[nodiscard]] QString valueText() const override;
  void adjust(double value, AdjustCause cause) override;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 signals:
  /// The user moved the slider: on the press, on every movement, on the release, on every step,
  /// also where the value stayed the same.
  void valueAdjusted(AdjustCause cause);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void leaveEvent(QEvent* event) override;
  /// Assistive software is told of a new value when this is another.
  [[nodiscard]] virtual QString announcedText() const { return valueText(); }

 private:
  [[nodiscard]] bool isVertical() const;
  [[nodiscard]] QPointF knobCentre() const;
  [[nodiscard]] double valueAt(QPointF knobCentre) const;
  void announce(const QString& before);
  void endTracking();
  void setPointer(std::optional<QPointF> place);

  std::shared_ptr<J4SliderCell> _cell;
  double _minimum = 0.0;
  double _maximum = 1.0;
  double _value = 0.0;
  double _fineStep = 0.0;  ///< 0: a share of the range
  double _coarseStep = 0.0;
  bool _isTracking = false;
  std::optional<QPointF> _pointer;  ///< where it is over this
  double _held = 0.0;               ///< the value to which the hand has brought it
  QPointF _hold;                    ///< from the centre of the knob to where it was taken
  StepInput _steps;
  KeyboardFocus _focus;
};
