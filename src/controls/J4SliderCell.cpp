// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/J4SliderCell.h"

#include <QTransform>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/AngleViewer.h"
#include "controls/Colors.h"
#include "controls/KeyboardFocus.h"

namespace {

constexpr double kThickness = 4.0;
constexpr double kTrackRadius = 2.0;
constexpr double kKnobMargins = 8.0;
constexpr double kKnobScale = 0.85;
constexpr double kKnobDrop = -2.0;

double onPixel(double at, double scale, double shift) {
  return (std::round(at * scale + shift) - shift) / scale;
}

// At fractional scales the long edges would fall between pixels and blur.
QRectF sharpened(const QRectF& bar, const QTransform& device, bool isVertical) {
  QRectF sharp = bar;
  if (isVertical) {
    sharp.setLeft(onPixel(bar.left(), device.m11(), device.dx()));
    sharp.setRight(onPixel(bar.right(), device.m11(), device.dx()));
  } else {
    sharp.setTop(onPixel(bar.top(), device.m22(), device.dy()));
    sharp.setBottom(onPixel(bar.bottom(), device.m22(), device.dy()));
  }
  return sharp;
}

QRectF background(const QRectF& track, bool isVertical) {
  if (isVertical) return {track.x(), track.y(), kThickness, track.height()};
  return {track.x(), track.y(), track.width(), kThickness};
}

}  // namespace

void J4SliderCell::setSliderEnabled(bool enabled) {
  _sliderEnabled = enabled;
  changed();
}

void J4SliderCell::setIsVertical(bool vertical) {
  _isVertical = vertical;
  changed();
}

void J4SliderCell::setControlView(SliderCellView* view) {
  SliderCellView* const before = std::exchange(_controlView, view);
  if (before != nullptr && view != nullptr && before != view) before->cellTaken();
  changed();
}

void J4SliderCell::changed() const {
  if (_controlView) _controlView->cellChanged();
}

QColor J4SliderCell::activeColor() const {
  return _sliderEnabled ? Colors::WHITE() : AngleViewer::GrayBackgroundColor();
}

QColor J4SliderCell::knobColor() const {
  const bool isPointedAt = _controlView && _controlView->isPointedAt();
  return _sliderEnabled && isPointedAt ? Colors::primaryHover() : activeColor();
}

QRectF J4SliderCell::backgroundOf(const QRectF& track) const {
  return background(track, _isVertical);
}

QRectF J4SliderCell::filledPartOf(const QRectF& track) const {
  return filledPart(track, _isVertical);
}

QRectF J4SliderCell::filledPart(const QRectF& track, bool isVertical) const {
  const double fraction = _controlView ? _controlView->fraction() : 0.0;
  const QSizeF view = _controlView ? _controlView->viewSize() : QSizeF();
  // The track is not shortened by the margins of the knob, its filled part is; the knob hides both.
  if (!isVertical)
    return {track.x(), track.y(), fraction * (view.width() - kKnobMargins), kThickness};
  const double length = fraction * (view.height() - kKnobMargins);
  return {track.x(), track.y() + track.height() - length, kThickness, length};
}

void J4SliderCell::drawBarInside(QPainter& painter, const QRectF& track, bool /*flipped*/) const {
  if (_isVertical) return drawVertical(painter, track);
  drawHorizontal(painter, track);
}

void J4SliderCell::drawHorizontal(QPainter& painter, const QRectF& track) const {
  drawBar(painter, track, false);
}

void J4SliderCell::drawVertical(QPainter& painter, const QRectF& track) const {
  drawBar(painter, track, true);
}

void J4SliderCell::drawBar(QPainter& painter, const QRectF& track, bool isVertical) const {
  const auto fill = [&](const QRectF& bar, const QColor& color) {
    painter.setBrush(color);
    painter.drawRoundedRect(sharpened(bar, painter.deviceTransform(), isVertical), kTrackRadius,
                            kTrackRadius);
  };
  painter.setPen(Qt::NoPen);
  fill(background(track, isVertical), AngleViewer::GrayBackgroundColor());
  if (const QRectF filled = filledPart(track, isVertical); !filled.isEmpty())
    fill(filled, activeColor());
}

double J4SliderCell::knobDiameter(double width, double height) {
  return std::trunc(std::trunc(std::min(width, height)) * kKnobScale);
}

QRectF J4SliderCell::circleOf(const QRectF& knob) {
  const double d = knobDiameter(knob.width(), knob.height());
  const QRectF centred(knob.x() + (knob.width() - d) / 2, knob.y() + (knob.height() - d) / 2, d, d);
  return centred.translated(0.0, kKnobDrop);
}

void J4SliderCell::drawKnob(QPainter& painter, const QRectF& knob) const {
  const QRectF circle = circleOf(knob);
  painter.setPen(Qt::NoPen);
  painter.setBrush(knobColor());
  painter.drawEllipse(circle);
  if (_controlView && _controlView->showsFocus()) KeyboardFocus::drawRing(painter, circle);
}
