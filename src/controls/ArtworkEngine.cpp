// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "controls/ArtworkEngine.h"

#include <QPainter>
#include <QPixmap>
#include <cmath>

namespace {

constexpr double kDisabledOpacity = 0.35;
constexpr std::size_t kMostKept = 16;

// The largest rectangle of this shape inside `room`, in its middle.
QRectF fitted(const QSizeF& shape, const QRectF& room) {
  QRectF place(QPointF(), shape.scaled(room.size(), Qt::KeepAspectRatio));
  place.moveCenter(room.center());
  return place;
}

bool isWhole(double number) {
  return number == std::round(number);
}

// A picture of the drawing is as good as the drawing where each of its pixels is one of the device.
bool standsOnPixels(const QPainter& painter, const QRect& rect, double scale) {
  const QTransform& way = painter.deviceTransform();
  if (way.type() > QTransform::TxScale || way.m11() != scale || way.m22() != scale) return false;
  const QPointF corner = way.map(QPointF(rect.topLeft()));
  return isWhole(corner.x()) && isWhole(corner.y()) && isWhole(rect.width() * scale) &&
         isWhole(rect.height() * scale);
}

}  // namespace

ArtworkEngine::ArtworkEngine(const QString& file)
    : _drawing(std::make_shared<QSvgRenderer>(file)), _kept(std::make_shared<Kept>()) {}

void ArtworkEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                          QIcon::State /*state*/) {
  if (rect.isEmpty()) return;
  const double scale = painter->device()->devicePixelRatioF();
  const bool isDimmed = mode == QIcon::Disabled;
  if (!isDimmed && !standsOnPixels(*painter, rect, scale)) return draw(*painter, rect);
  QPixmap picture = kept((QSizeF(rect.size()) * scale).toSize());
  picture.setDevicePixelRatio(scale);
  painter->save();
  // As one layer: parts of a drawing that lie over each other are not to shine through.
  if (isDimmed) painter->setOpacity(painter->opacity() * kDisabledOpacity);
  painter->drawPixmap(rect.topLeft(), picture);
  painter->restore();
}

void ArtworkEngine::draw(QPainter& painter, const QRect& rect) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  _drawing->render(&painter, fitted(_drawing->viewBoxF().size(), rect));
  painter.restore();
}

QPixmap ArtworkEngine::kept(const QSize& pixels) const {
  const std::pair key(pixels.width(), pixels.height());
  const auto found = _kept->find(key);
  if (found != _kept->end()) return found->second;
  if (_kept->size() >= kMostKept) _kept->clear();
  QPixmap picture(pixels);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  draw(painter, QRect(QPoint(), pixels));
  painter.end();
  return (*_kept)[key] = picture;
}

QPixmap ArtworkEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
  if (mode == QIcon::Normal) return kept(size);
  QPixmap picture(size);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  paint(&painter, QRect(QPoint(), size), mode, state);
  return picture;
}
