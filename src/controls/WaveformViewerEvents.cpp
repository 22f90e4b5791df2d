// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <cmath>
#include <utility>

#include "controls/WaveformViewer.h"

namespace {

constexpr double kZoomPerNotch = 0.7;
constexpr double kNotch = QWheelEvent::DefaultDeltasPerStep;
constexpr double kScrollPerNotch = 60;  // pixels

}  // namespace

bool WaveformViewer::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked || event->type() == QEvent::Hide) endHolding();
  if (event->type() == QEvent::NativeGesture) {
    const auto& gesture = static_cast<QNativeGestureEvent&>(*event);
    if (gesture.gestureType() == Qt::ZoomNativeGesture && isAdjustable()) {
      zoom(1.0 / (1.0 + std::max(-0.9, gesture.value())), gesture.position().x());
      return true;
    }
  }
  return QWidget::event(event);
}

void WaveformViewer::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  _stretch.setWidth(body().width());
  drawPictures();
  emit stretchChanged();
}

void WaveformViewer::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) {
    _isHeld = false;
    _marks.letGo();
  }
  if (event->type() == QEvent::FontChange) _ruler.setFont(font());
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) drawPictures();
  QWidget::changeEvent(event);
}

void WaveformViewer::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !isAdjustable()) return event->ignore();
  if (isRuler(event->position())) return _marks.press(_stretch, placeOf(event->position().x()));
  _isHeld = true;
  adjust(timeAt(event->position().x()), AdjustCause::Press);
}

bool WaveformViewer::isRuler(QPointF at) const {
  return at.y() < body().top();
}

double WaveformViewer::placeOf(double x) const {
  return x - body().left();
}

// The pointer has moved, and what it reads: everything is drawn anew for that.
void WaveformViewer::markTo(double x) {
  _marks.drag(_stretch, placeOf(x));
}

// What was no drag is a click.
void WaveformViewer::endMarking(double x) {
  const auto drawn = _marks.release();
  update();
  if (drawn) return void(emit stretchMarked(drawn->a, *drawn->b));
  adjust(timeAt(x), AdjustCause::Press);
  adjust(_position, AdjustCause::Release);
}

void WaveformViewer::showCursor(QPointF at) {
  const bool isMark = isRuler(at) && _marks.isMark(_stretch, placeOf(at.x()));
  setCursor(isMark ? Qt::SizeHorCursor : Qt::ArrowCursor);
}

void WaveformViewer::mouseMoveEvent(QMouseEvent* event) {
  hover(event->position().x());
  if (_marks.isHeld()) return markTo(event->position().x());
  showCursor(event->position());
  if (_isHeld) adjust(timeAt(event->position().x()), AdjustCause::Drag);
}

// The release goes to the dialog, or nowhere: what was done by then stands.
void WaveformViewer::endHolding() {
  if (_marks.isHeld()) {
    const auto drawn = _marks.release();
    if (drawn) emit stretchMarked(drawn->a, *drawn->b);
    update();
  }
  if (std::exchange(_isHeld, false)) adjust(_position, AdjustCause::Release);
}

void WaveformViewer::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  if (_marks.isHeld()) return endMarking(event->position().x());
  if (!_isHeld) return event->ignore();
  _isHeld = false;
  adjust(_position, AdjustCause::Release);
}

// The first click of the two has moved the play head, as any.
void WaveformViewer::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !isAdjustable()) return event->ignore();
  showAll();
}

void WaveformViewer::leaveEvent(QEvent* event) {
  hover(std::nullopt);
  QWidget::leaveEvent(event);
}

void WaveformViewer::hover(std::optional<double> x) {
  if (x == _hover) return;
  _hover = x;
  if (length() > 0) update();
}

void WaveformViewer::wheelEvent(QWheelEvent* event) {
  if (!isAdjustable()) return event->ignore();
  const QPoint turned = event->angleDelta();
  const bool isAside = turned.x() != 0 || (event->modifiers() & Qt::ShiftModifier) != 0;
  if (isAside) {
    const int notches = turned.x() != 0 ? turned.x() : turned.y();
    return scroll(-notches / kNotch * kScrollPerNotch);
  }
  zoom(std::pow(kZoomPerNotch, turned.y() / kNotch), event->position().x());
}

std::optional<double> WaveformViewer::keyTarget(const QKeyEvent& event) const {
  const bool isFar = (event.modifiers() & Qt::ShiftModifier) != 0;
  const double step = isFar ? coarseStep() : fineStep();
  switch (event.key()) {
    case Qt::Key_Left:
      return _position - step;
    case Qt::Key_Right:
      return _position + step;
    case Qt::Key_PageDown:
      return _position - coarseStep();
    case Qt::Key_PageUp:
      return _position + coarseStep();
    case Qt::Key_Home:
      return lowest();
    case Qt::Key_End:
      return highest();
    default:
      return std::nullopt;
  }
}

// Up and Down are left to the window; plus and minus zoom around the play head.
void WaveformViewer::keyPressEvent(QKeyEvent* event) {
  const Qt::KeyboardModifiers shortcuts = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if (!isAdjustable() || (event->modifiers() & shortcuts) != 0) return event->ignore();
  const bool isPlus = event->key() == Qt::Key_Plus;
  if (const auto target = keyTarget(*event)) {
    adjust(*target, AdjustCause::Key);
  } else if (isPlus || event->key() == Qt::Key_Minus) {
    zoom(isPlus ? kZoomPerNotch : 1 / kZoomPerNotch, xOf(_position));
  } else {
    return event->ignore();
  }
  _focus.used();
  update();
}

void WaveformViewer::focusInEvent(QFocusEvent* event) {
  _focus.gained(event->reason());
  QWidget::focusInEvent(event);
}
