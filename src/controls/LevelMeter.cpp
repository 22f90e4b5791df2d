// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/LevelMeter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/AccessibleFactory.h"
#include "controls/Colors.h"
#include "controls/Upward.h"

namespace {

constexpr double kHoldHeight = 2.0;

QAccessibleInterface* makeReadableMeter(LevelMeter& meter) {
  return new LevelMeterAccessible(meter, meter);
}

}  // namespace

LevelMeter::LevelMeter(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<LevelMeter, makeReadableMeter>();
  initUI();
}

void LevelMeter::initUI() {
  _layerGray.contents = LevelMeterPicture(QStringLiteral("levelmeter2"));
  _layerRainBow.contents = LevelMeterPicture(QStringLiteral("levelmeter"));
  _cacheSize = {0.0, 0.0};
  _maxValue = 100;
  _minValue = 0;
  _level = 0;
}

LevelMeterScale& LevelMeter::sharedScale() {
  static LevelMeterScale scale;
  return scale;
}

void LevelMeter::setLevel(std::int64_t level) {
  _level = std::max(std::min(level, _maxValue), _minValue);
  if (_cacheSize == QSizeF(0.0, 0.0)) return;
  updateFrame();
}

// Whole pixels: a line between two of them would blur.
double LevelMeter::holdTop(double level) const {
  const double place = LevelMeterScale::place(level, height());
  return std::min(std::round(height() - place), height() - kHoldHeight);
}

void LevelMeter::setHold(double level) {
  const double now = level > 0.0 ? level : 0.0;  // not for what is not a number either
  const bool isSame = (now > 0.0) == (_hold > 0.0) && holdTop(now) == holdTop(_hold);
  _hold = now;
  if (!isSame) update();
}

void LevelMeter::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layoutLayers();
}

void LevelMeter::layoutLayers() {
  if (QSizeF(size()) == _cacheSize) return;
  _cacheSize = size();
  const QRectF bounds(rect());
  _layerGray.frame = bounds;
  _layerRainBow.frame = bounds;
  _layerMaskOfRainBow = bounds.translated(0.0, -bounds.height());
  if (!sharedScale().isSet()) sharedScale() = LevelMeterScale(bounds.height());
  updateFrame();
}

void LevelMeter::updateFrame() {
  const QRectF bright = _layerRainBow.frame;
  const double visible = sharedScale().visibleHeight(_level, height());
  const QRectF mask = bright.translated(0.0, visible - bright.height());
  const QRectF before = std::exchange(_layerMaskOfRainBow, mask);
  if (mask != before) updateBetween(before.bottom(), mask.bottom());
}

// Both are upward; nothing else of the bar changes.
void LevelMeter::updateBetween(double one, double other) {
  const double top = std::floor(height() - std::max(one, other));
  const double bottom = std::ceil(height() - std::min(one, other));
  update(QRectF(0.0, top, width(), bottom - top).toRect().intersected(rect()));
}

void LevelMeter::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  _layerGray.contents.draw(painter, Upward::rect(_layerGray.frame, height()));
  const double top = std::min(_layerMaskOfRainBow.y() + _layerMaskOfRainBow.height(),
                              _layerRainBow.frame.height());
  if (top > 0.0) drawBright(painter, top);
  if (_hold <= 0.0) return;
  painter.setClipping(false);
  painter.fillRect(QRectF(0.0, holdTop(_hold), width(), kHoldHeight), Colors::WHITE());
}

void LevelMeter::drawBright(QPainter& painter, double top) const {
  // A mask that has risen past the bar reveals all of it, its lower end included.
  painter.setClipRect(Upward::rect({0.0, 0.0, _layerRainBow.frame.width(), top}, height()));
  _layerRainBow.contents.draw(painter, Upward::rect(_layerRainBow.frame, height()));
}
