// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/Slider.h"

#include <QAccessible>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/AccessibleFactory.h"
#include "controls/AdjustableAccessible.h"

namespace {

// The cell draws the bar at the edge of a track twice as thick and lifts the knob by 2; with these
// sizes both lie on one line and on whole pixels.
constexpr double kKnobSide = 22.0;
constexpr double kKnobLift = Slider::kLift;
constexpr double kTrackHeight = 8.0;
constexpr double kTrackWidth = 4.0;
constexpr int kLength = 110;

// The knob as drawn stays inside the view at both ends.
double travel(double length) {
  return length - J4SliderCell::knobDiameter(kKnobSide, kKnobSide);
}

QAccessibleInterface* makeReadableSlider(Slider& slider) {
  return new AdjustableAccessible(&slider, slider, QAccessible::Slider);
}

}  // namespace

Slider::Slider(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<Slider, makeReadableSlider>();
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setCursor(Qt::PointingHandCursor);
  setCell(std::make_shared<J4SliderCell>());
}

Slider::~Slider() {
  setCell(nullptr);
}

void Slider::setCell(std::shared_ptr<J4SliderCell> cell) {
  if (_cell) _cell->setControlView(nullptr);
  _cell = std::move(cell);
  if (_cell) _cell->setControlView(this);
  update();
}

void Slider::cellTaken() {
  _cell.reset();
  update();
}

void Slider::cellChanged() {
  updateGeometry();
  update();
}

bool Slider::isVertical() const {
  return _cell && _cell->isVertical();
}

void Slider::setRange(double minimum, double maximum) {
  _minimum = minimum;
  _maximum = std::max(minimum, maximum);
  setValue(_value);
  update();
}

void Slider::setValue(double value) {
  const double clamped = std::clamp(value, _minimum, _maximum);
  if (std::isnan(clamped) || clamped == _value) return;
  const QString before = announcedText();
  _value = clamped;
  update();
  announce(before);
}

void Slider::announce(const QString& before) {
  // A position that moves by itself would otherwise be read out five times a second.
  if (announcedText() == before) return;
  QAccessibleValueChangeEvent event(this, _value);
  QAccessible::updateAccessibility(&event);
}

double Slider::fraction() const {
  return _maximum > _minimum ? (_value - _minimum) / (_maximum - _minimum) : 0.0;
}

double Slider::fineStep() const {
  return _fineStep > 0.0 ? _fineStep : (_maximum - _minimum) / 100.0;
}

double Slider::coarseStep() const {
  return _coarseStep > 0.0 ? _coarseStep : (_maximum - _minimum) / 10.0;
}

void Slider::setSteps(double fine, double coarse) {
  _fineStep = fine;
  _coarseStep = coarse;
}

QString Slider::valueText() const {
  return tr("%1 %").arg(static_cast<int>(std::lround(fraction() * 100.0)));
}

void Slider::adjust(double value, AdjustCause cause) {
  setValue(value);
  emit valueAdjusted(cause);
}

QRectF Slider::barRect() const {
  if (isVertical())
    return {std::floor(width() / 2.0) - kTrackWidth / 2, 0.0, kTrackWidth, 1.0 * height()};
  return {0.0, std::floor(height() / 2.0) - kTrackHeight / 2, 1.0 * width(), kTrackHeight};
}

QPointF Slider::knobCentre() const {
  const double radius = J4SliderCell::knobDiameter(kKnobSide, kKnobSide) / 2.0;
  const double along = radius + fraction() * travel(isVertical() ? height() : width());
  if (isVertical()) return {std::floor(width() / 2.0), height() - along};
  return {along, std::floor(height() / 2.0) - kKnobLift};
}

QRectF Slider::knobRect() const {
  const QPointF corner(kKnobSide / 2, kKnobSide / 2 - kKnobLift);
  return {knobCentre() - corner, QSizeF(kKnobSide, kKnobSide)};
}

double Slider::valueAt(QPointF knobCentre) const {
  const double radius = J4SliderCell::knobDiameter(kKnobSide, kKnobSide) / 2.0;
  const double length = travel(isVertical() ? height() : width());
  const double along = (isVertical() ? height() - knobCentre.y() : knobCentre.x()) - radius;
  if (length <= 0.0) return _minimum;
  return _minimum + std::clamp(along / length, 0.0, 1.0) * (_maximum - _minimum);
}

QSize Slider::sizeHint() const {
  const QSize along(kLength, static_cast<int>(kKnobSide));
  return isVertical() ? along.transposed() : along;
}

QSize Slider::minimumSizeHint() const {
  const int side = static_cast<int>(kKnobSide);
  return isVertical() ? QSize(side, 2 * side) : QSize(2 * side, side);
}

void Slider::paintEvent(QPaintEvent* /*event*/) {
  const auto cell = _cell;
  if (!cell) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  cell->drawBarInside(painter, barRect(), true);
  cell->drawKnob(painter, knobRect());
}

void Slider::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) _isTracking = false;
  QWidget::changeEvent(event);
}

void Slider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  _isTracking = true;
  const QPointF centre = knobCentre();
  const bool isOnKnob = knobRect().contains(event->position());
  _hold = isOnKnob ? event->position() - centre : QPointF();
  _held = isOnKnob ? _value : valueAt(event->position());
  adjust(_held, AdjustCause::Press);
}

bool Slider::isPointedAt() const {
  return isEnabled() && _pointer && (_isTracking || knobRect().contains(*_pointer));
}

void Slider::setPointer(std::optional<QPointF> place) {
  const bool was = isPointedAt();
  _pointer = place;
  if (isPointedAt() != was) update();
}

void Slider::leaveEvent(QEvent* event) {
  setPointer(std::nullopt);
  QWidget::leaveEvent(event);
}

void Slider::mouseMoveEvent(QMouseEvent* event) {
  setPointer(event->position());
  if (!_isTracking) return;
  _held = valueAt(event->position() - _hold);
  adjust(_held, AdjustCause::Drag);
}

void Slider::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !_isTracking) return event->ignore();
  endTracking();
}

void Slider::endTracking() {
  if (!std::exchange(_isTracking, false)) return;
  update();  // the knob may lie beside the pointer
  adjust(_held, AdjustCause::Release);
}

// The release goes to the dialog, or nowhere.
bool Slider::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::Hide) endTracking();
  return QWidget::event(event);
}

void Slider::keyPressEvent(QKeyEvent* event) {
  if (!StepInput::keyPressed(*this, *event)) return QWidget::keyPressEvent(event);
  _focus.used();
  update();
}

void Slider::wheelEvent(QWheelEvent* event) {
  if (!_steps.wheelTurned(*this, *event)) event->ignore();
}

void Slider::focusInEvent(QFocusEvent* event) {
  _focus.gained(event->reason());
  QWidget::focusInEvent(event);
}
