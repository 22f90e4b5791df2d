// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/PathViewer.h"

#include <QAccessible>
#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>

#include "controls/AccessibleFactory.h"
#include "controls/PathViewerAccessible.h"
#include "controls/Upward.h"

namespace {

QAccessibleInterface* makeReadablePath(PathViewer& path) {
  return new PathViewerAccessible(path, [&path] { return path.lastPathComponent(); });
}

}  // namespace

PathViewer::PathViewer(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<PathViewer, makeReadablePath>();
  setAccessibleName(tr("Current folder"));
  initUI();
}

void PathViewer::initUI() {
  setText(QString());
}

void PathViewer::setText(const QString& text) {
  _text = text;
  measure();
  QAccessibleValueChangeEvent event(this, _shown);
  QAccessible::updateAccessibility(&event);
}

QString PathViewer::lastPathComponent() const {
  qsizetype end = _text.size();
  while (end > 1 && _text[end - 1] == u'/') --end;
  if (end == 1) return _text.left(1);
  const qsizetype start = _text.left(end).lastIndexOf(u'/') + 1;
  return _text.mid(start, end - start);
}

void PathViewer::measure() {
  _shown = lastPathComponent();
  const QFontMetricsF metrics(font());
  _shownSize = {metrics.horizontalAdvance(_shown), metrics.height()};
  updateGeometry();
  update();
}

QPointF PathViewer::textOrigin() const {
  const double spare = width() - _shownSize.width();
  const double above = height() - _shownSize.height();
  return {spare < 0.0 ? spare : 0.0, above - above * 0.5};
}

QSize PathViewer::sizeHint() const {
  return _shownSize.toSize() + QSize(1, 0);
}

void PathViewer::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) measure();
  QWidget::changeEvent(event);
}

void PathViewer::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(Qt::black);
  const QPointF top = Upward::rect({textOrigin(), _shownSize}, height()).topLeft();
  painter.drawText(top + QPointF(0.0, painter.fontMetrics().ascent()), _shown);
}
