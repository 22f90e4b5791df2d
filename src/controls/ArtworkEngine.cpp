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
                          QIcon::State /*state*/) {
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kDisabledOpacity);
  _drawing->render(painter, fitted(_drawing->viewBoxF().size(), rect));
  painter->restore();
}

QPixmap ArtworkEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
  QPixmap picture(size);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  paint(&painter, QRect(QPoint(), size), mode, state);
  return picture;
}
