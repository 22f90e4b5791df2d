// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/ArtworkEngine.h"

#include <QPainter>
#include <QPixmap>

namespace {

constexpr double kDisabledOpacity = 0.35;

// The largest rectangle of this shape inside `room`, in its middle.
QRectF fitted(const QSizeF& shape, const QRectF& room) {
  QRectF place(QPointF(), shape.scaled(room.size(), Qt::KeepAspectRatio));
  place.moveCenter(room.center());
  return place;
}

}  // namespace

ArtworkEngine::ArtworkEngine(const QString& file)
    : _drawing(std::make_shared<QSvgRenderer>(file)) {}

void ArtworkEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                          QIcon::State state) {
  if (mode == QIcon::Disabled) return paintDimmed(*painter, rect, state);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  _drawing->render(painter, fitted(_drawing->viewBoxF().size(), rect));
  painter->restore();
}

// As one layer: parts of a drawing that lie over each other are not to shine through.
void ArtworkEngine::paintDimmed(QPainter& painter, const QRect& rect, QIcon::State state) {
  const double scale = painter.device()->devicePixelRatioF();
  QPixmap layer = pixmap((QSizeF(rect.size()) * scale).toSize(), QIcon::Normal, state);
  layer.setDevicePixelRatio(scale);
  painter.save();
  painter.setOpacity(painter.opacity() * kDisabledOpacity);
  painter.drawPixmap(rect.topLeft(), layer);
  painter.restore();
}

QPixmap ArtworkEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
  QPixmap picture(size);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  paint(&painter, QRect(QPoint(), size), mode, state);
  return picture;
}
