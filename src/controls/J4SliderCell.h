// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QRectF>

/// What a cell draws.
class SliderCellView {
 public:
  SliderCellView() = default;
  SliderCellView(const SliderCellView&) = delete;
  SliderCellView& operator=(const SliderCellView&) = delete;
  virtual ~SliderCellView() = default;

  /// Where the value lies in the range, 0 to 1.
  [[nodiscard]] virtual double fraction() const = 0;
  [[nodiscard]] virtual QSizeF viewSize() const = 0;
  /// Whether the knob should show the focus ring.
  [[nodiscard]] virtual bool showsFocus() const = 0;
  /// Whether the pointer is there to take the knob.
  [[nodiscard]] virtual bool isPointedAt() const = 0;
  /// The cell draws other than before.
  virtual void cellChanged() = 0;
  /// Another view has the cell from now on.
  virtual void cellTaken() = 0;
};

/// Draws a slider: a thin round track, its filled part, a round knob; bright, or all grey.
///
/// Rectangles are y downward, in device-independent pixels, so a vertical slider fills from its
/// lower end. Value and size come from the control view. Interface thread.
class J4SliderCell {
 public:
  [[nodiscard]] bool sliderEnabled() const { return _sliderEnabled; }
  /// Bright drawing. Independent of whether the slider takes input.
  void setSliderEnabled(bool enabled);
  [[nodiscard]] bool isVertical() const { return _isVertical; }
  void setIsVertical(bool vertical);

  /// The slider drawn; a slider sets itself when it takes the cell, and the one before loses it.
  /// None: nothing is filled.
  void setControlView(SliderCellView* view);

  /// The track within its rectangle; `flipped` says that y is downward, as it always is here.
  void drawBarInside(QPainter& painter, const QRectF& track, bool flipped) const;
  void drawHorizontal(QPainter& painter, const QRectF& track) const;
  void drawVertical(QPainter& painter, const QRectF& track) const;
  void drawKnob(QPainter& painter, const QRectF& knob) const;

  /// The grey bar and the filled part of it, for a track's rectangle.
  [[nodiscard]] QRectF backgroundOf(const QRectF& track) const;
  [[nodiscard]] QRectF filledPartOf(const QRectF& track) const;
  /// The circle drawn for a knob's rectangle.
  [[nodiscard]] static QRectF circleOf(const QRectF& knob);
  [[nodiscard]] static double knobDiameter(double width, double height);

 private:
  [[nodiscard]] QRectF filledPart(const QRectF& track, bool isVertical) const;
  void drawBar(QPainter& painter, const QRectF& track, bool isVertical) const;
  [[nodiscard]] QColor activeColor() const;
  [[nodiscard]] QColor knobColor() const;
  void changed() const;

  bool _sliderEnabled = false;
  bool _isVertical = false;
  SliderCellView* _controlView = nullptr;  ///< takes itself away when it goes
};
