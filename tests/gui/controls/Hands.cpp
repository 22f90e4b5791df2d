// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "Hands.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>

namespace {

quint64 newClickTime() {
  static quint64 time = 0;
  return time += 10'000;
}

void send(QWidget& control, QEvent::Type type, QPointF at, Qt::MouseButton button,
          Qt::MouseButtons held) {
  QMouseEvent event(type, at, control.mapToGlobal(at), button, held, Qt::NoModifier);
  event.setTimestamp(newClickTime());
  QApplication::sendEvent(&control, &event);
}

}  // namespace

void Hands::show(QWidget& control, QSize size) {
  control.resize(size);
  control.show();
  if (!QTest::qWaitForWindowExposed(&control)) qFatal("the window did not appear");
  control.grab();
}

void Hands::press(QWidget& control, QPointF at, Qt::MouseButton button) {
  send(control, QEvent::MouseButtonPress, at, button, button);
}

void Hands::secondPress(QWidget& control, QPointF at) {
  send(control, QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton);
}

void Hands::move(QWidget& control, QPointF to) {
  send(control, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
}

void Hands::hover(QWidget& control, QPointF to) {
  send(control, QEvent::MouseMove, to, Qt::NoButton, Qt::NoButton);
}

void Hands::release(QWidget& control, QPointF at, Qt::MouseButton button) {
  send(control, QEvent::MouseButtonRelease, at, button, Qt::NoButton);
}

void Hands::click(QWidget& control, QPointF at) {
  press(control, at);
  release(control, at);
}

void Hands::doubleClick(QWidget& control, QPointF at) {
  click(control, at);
  secondPress(control, at);
  release(control, at);
}

void Hands::wheel(QWidget& control, int eighths, Qt::KeyboardModifiers modifiers) {
  const QPointF at = QRectF(control.rect()).center();
  QWheelEvent event(at, control.mapToGlobal(at), QPoint(), QPoint(0, eighths), Qt::NoButton,
                    modifiers, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&control, &event);
}

QImage Hands::picture(QWidget& control, double scale) {
  QImage image((QSizeF(control.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(scale);
  image.fill(Qt::black);
  control.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
  return image;
}

QColor Hands::colorAt(const QImage& picture, QPointF place) {
  const QPointF pixel = place * picture.devicePixelRatio();
  return picture.pixelColor(static_cast<int>(pixel.x()), static_cast<int>(pixel.y()));
}
