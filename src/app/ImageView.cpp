// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT

#include "app/ImageView.h"

#include <QAccessibleWidget>
#include <QPainter>

#include "controls/AccessibleFactory.h"

namespace {

QAccessibleInterface* makeReadableImage(ImageView& view) {
  return new QAccessibleWidget(&view, QAccessible::Graphic);
}

}  // namespace

ImageView::ImageView(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<ImageView, makeReadableImage>();
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ImageView::setImage(const QIcon& image) {
  _image = image;
  update();
}

void ImageView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  _image.paint(&painter, rect(), Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}
