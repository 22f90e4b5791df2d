// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
// Drawing and input of the dial; its geometry and values are in AngleViewer.cpp.

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

#include "controls/AngleViewer.h"
#include "controls/Colors.h"
#include "controls/Upward.h"

namespace {

constexpr double kLineWidth = 4.0;
constexpr double kTitleGap = 8.0;
constexpr double kHalfTurn = 180.0;
constexpr double kUsualSide = 330.0;
constexpr double kRadiusPerSide = 0.4;

QPen arcPen(const QColor& color) {
  return {color, kLineWidth, Qt::SolidLine, Qt::RoundCap};
}

}  // namespace

void AngleViewer::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layoutGeometry();
}

void AngleViewer::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) measureTitles();
  if (event->type() == QEvent::PaletteChange) takeColors();
  QWidget::changeEvent(event);
}

void AngleViewer::measureTitles() {
  const QFontMetricsF metrics(font());
  _titleSizes.clear();
  for (const AngleInfo& title : _angleTextList) {
    _titleSizes.emplace_back(metrics.horizontalAdvance(title.text()), metrics.height());
  }
}

QSize AngleViewer::sizeHint() const {
  double side = kUsualSide;
  for (std::size_t i = 0; i < _angleTextList.size(); ++i) {
    const double t = (_angleTextList[i].angle() + kTop) * std::numbers::pi / kHalfTurn;
    const double room = 0.5 + std::cos(t) * kRadiusPerSide;
    const double need = _titleSizes[i].width() + kTitleGap - _angleTextList[i].offset().x();
    side = std::max(side, std::ceil(need / room));
  }
  return QSizeF(side, side).toSize();
}

void AngleViewer::paintEvent(QPaintEvent* /*event*/) {
  if (!_benBG) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.save();
  Upward::turn(painter, height());
  drawArcs(painter);
  if (_enable) _ring.draw(painter, centre(), RADIUS_OF_BIG_CURVE);
  drawThumb(painter);
  painter.restore();
  drawText(painter, rect());
}

void AngleViewer::drawArcs(QPainter& painter) const {
  painter.strokePath(*_benBG, arcPen(_grayCircleColor));
  if (_enable) painter.strokePath(*_benMove, arcPen(Colors::WHITE()));
}

void AngleViewer::drawThumb(QPainter& painter) const {
  painter.translate(_thumbPosition - QPointF(THUMB_SIZE / 2.0, THUMB_SIZE / 2.0));
  const QColor bright = isThumbPointed() ? Colors::primaryHover() : Colors::WHITE();
  painter.fillPath(*_benThumb, _enable ? bright : _disableColor);
  if (hasFocus() && _focus.isShown()) KeyboardFocus::drawRing(painter, _benThumb->boundingRect());
}

void AngleViewer::drawText(QPainter& painter, const QRectF& rect) {
  const QPointF centre(rect.width() / 2.0, rect.height() / 2.0);
  painter.setPen(_enable ? Colors::WHITE() : _disableTextColor);
  const double ascent = painter.fontMetrics().ascent();
  for (std::size_t i = 0; i < _angleTextList.size(); ++i) {
    AngleInfo& title = _angleTextList[i];
    placeTitle(title, _titleSizes[i], centre);
    const QPointF top = Upward::rect(title.frame(), height()).topLeft();
    painter.drawText(top + QPointF(0.0, ascent), title.text());
  }
}

void AngleViewer::placeTitle(AngleInfo& title, QSizeF size, QPointF centre) const {
  const double t = (title.angle() + kTop) * std::numbers::pi / kHalfTurn;
  const double x = centre.x() + std::cos(t) * RADIUS_OF_BIG_CURVE - size.width() - kTitleGap +
                   title.offset().x();
  const double fromTop =
      (centre.y() - std::sin(t) * RADIUS_OF_BIG_CURVE) - size.height() * 0.5 + title.offset().y();
  title.setFrame({{x, height() - size.height() - fromTop}, size});
}

QPointF AngleViewer::upward(const QMouseEvent& event) const {
  return Upward::point(event.position(), height());
}

QRectF AngleViewer::thumbSquare() const {
  const QPointF half(THUMB_SIZE / 2.0, THUMB_SIZE / 2.0);
  return {_thumbPosition - half, QSizeF(THUMB_SIZE, THUMB_SIZE)};
}

// The release goes to the dialog, or nowhere.
bool AngleViewer::event(QEvent* event) {
  const bool isEnd = event->type() == QEvent::WindowBlocked || event->type() == QEvent::Hide;
  if (isEnd) endDrag();
  return QWidget::event(event);
}

void AngleViewer::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  _clicks.press(*event);
  _userDidDrag = false;
  _allow2Drag = false;
  _didTouchAngleTitle = false;
  if (!_enable) return;
  _allow2Drag = Upward::covers(thumbSquare(), upward(*event));
  if (!_allow2Drag) detectClickTitle(upward(*event));
}

void AngleViewer::mouseMoveEvent(QMouseEvent* event) {
  if (_allow2Drag) {
    _userDidDrag = true;
    moveTheThumb(upward(*event), false);
  }
  point(*event);
}

// The thumb may lie beside the pointer.
void AngleViewer::endDrag() {
  if (std::exchange(_allow2Drag, false)) update();
}

void AngleViewer::point(const QMouseEvent& event) {
  std::optional<double> angle;
  if (_enable) angle = _allow2Drag ? _angle : angleAt(upward(event));
  setPointed(angle ? std::optional(static_cast<int>(*angle)) : std::nullopt);
  setPointer(upward(event));
}

void AngleViewer::leaveEvent(QEvent* event) {
  setPointed(std::nullopt);
  setPointer(std::nullopt);
  QWidget::leaveEvent(event);
}

void AngleViewer::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  if (!_enable) return;
  if (!_didTouchAngleTitle && !_userDidDrag && _clicks.count() == 1) detectClick(upward(*event));
  _userDidDrag = false;
  endDrag();
  point(*event);
}

void AngleViewer::keyPressEvent(QKeyEvent* event) {
  if (!StepInput::keyPressed(*this, *event)) return QWidget::keyPressEvent(event);
  _focus.used();
}

void AngleViewer::wheelEvent(QWheelEvent* event) {
  if (!_steps.wheelTurned(*this, *event)) event->ignore();
}

void AngleViewer::focusInEvent(QFocusEvent* event) {
  _focus.gained(event->reason());
  QWidget::focusInEvent(event);
}
