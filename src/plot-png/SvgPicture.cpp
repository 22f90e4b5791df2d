// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "plot-png/SvgPicture.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

QByteArray SvgPicture::toPng(const QByteArray& svg) {
  constexpr int kScale = 2;  // sharp on a fine screen too
  QSvgRenderer renderer(svg);
  if (!renderer.isValid()) return {};
  QImage image(kScale * renderer.defaultSize(), QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  renderer.render(&painter);
  painter.end();
  QBuffer png;
  png.open(QIODevice::WriteOnly);
  return image.save(&png, "PNG") ? png.data() : QByteArray();
}
