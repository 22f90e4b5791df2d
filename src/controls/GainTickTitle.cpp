// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/GainTickTitle.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "controls/AccessibleFactory.h"
#include "controls/Colors.h"
#include "controls/Upward.h"

namespace {

constexpr double kMargin = 30.0;
constexpr double kReachBelow = 10.0;

QRectF hitArea(const QRectF& frame) {
  return {0.0, frame.y() - kReachBelow, frame.x() + frame.width(), frame.height() + kReachBelow};
}

QAccessibleInterface* makeReadableScale(GainTickTitle& scale) {
  return new ScaleAccessible(scale, scale);
}

}  // namespace

GainTickTitle::GainTickTitle(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<GainTickTitle, makeReadableScale>();
  setAccessibleName(tr("Scale"));
  setMouseTracking(true);
  initUI();
}

void GainTickTitle::initUI() {
  _disableTextColor = Colors::disabledText();
}

void GainTickTitle::initTick() {
  _textRectList.clear();
  for (const QString& text : _texts) _textRectList.emplace_back(text);
  measure();
}

void GainTickTitle::setEnable(bool enable) {
  _enable = enable;
  if (!enable) setCursor(Qt::ArrowCursor);
  update();
}

void GainTickTitle::measure() {
  const QFontMetricsF metrics(font());
  _sizes.clear();
  for (const TickTextInfo& label : _textRectList) {
    _sizes.emplace_back(metrics.horizontalAdvance(label.text()), metrics.height());
  }
  update();
}

void GainTickTitle::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) measure();
  if (event->type() == QEvent::PaletteChange) initUI();
  QWidget::changeEvent(event);
}

void GainTickTitle::placeLabels() {
  // With one text the step is infinite; it is then never used.
  const double step = (height() - 2.0 * kMargin) / (static_cast<double>(_texts.size()) - 1.0);
  double pos = kMargin;
  for (std::size_t i = 0; i < _textRectList.size(); ++i) {
    const QSizeF size = _sizes[i];
    // Meant for the first label, but any label that comes to stand at 30 moves; kept on purpose.
    if (pos == kMargin) pos -= 0.5 * size.height();
    _textRectList[i].setFrame({{width() - size.width(), height() - size.height() - pos}, size});
    pos += step;
  }
}

void GainTickTitle::paintEvent(QPaintEvent* /*event*/) {
  placeLabels();
  QPainter painter(this);
  painter.setPen(_enable ? Colors::WHITE() : _disableTextColor);
  const double ascent = painter.fontMetrics().ascent();
  for (const TickTextInfo& label : _textRectList) {
    const QPointF top = Upward::rect(label.frame(), height()).topLeft();
    if (std::isfinite(top.y())) painter.drawText(top + QPointF(0.0, ascent), label.text());
  }
}

void GainTickTitle::mousePressEvent(QMouseEvent* event) {
  event->setAccepted(event->button() == Qt::LeftButton);
}

void GainTickTitle::mouseMoveEvent(QMouseEvent* event) {
  const bool isThere = _enable && isHeard() && labelAt(event->position()) != nullptr;
  setCursor(isThere ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void GainTickTitle::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  if (const TickTextInfo* const label = labelAt(event->position())) click(*label);
}

const TickTextInfo* GainTickTitle::labelAt(QPointF position) const {
  const QPointF point = Upward::point(position, height());
  const auto label = std::find_if(
      _textRectList.begin(), _textRectList.end(),
      [point](const TickTextInfo& info) { return Upward::covers(hitArea(info.frame()), point); });
  return label == _textRectList.end() ? nullptr : &*label;
}

void GainTickTitle::click(const TickTextInfo& label) {
  // The answer to the click may replace the labels.
  const QString text = label.text();
  if (const auto delegate = _delegate.lock()) delegate->GainTickTitle(this, text);
}
