// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/StereoScope.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "controls/AccessibleFactory.h"
#include "controls/Appearance.h"
#include "controls/Colors.h"

namespace {

constexpr double kScopeRadius = 4;
constexpr double kFadeTime = 0.12;  // seconds after which a point has a third of its light
constexpr double kLetter = 16;      // of its box, at least
constexpr double kRim = 10;         // from there to its middle, at least
constexpr double kInner = 0.05;     // of the side: the lines keep clear of the middle
constexpr double kDiagonal = 0.36;  // how far out lines reach
constexpr double kStraight = 0.38;
constexpr double kHalo = 2;  // of dark around a letter
constexpr int kHaloTurns = 16;

QAccessibleInterface* makeReadableScope(StereoScope& scope) {
  return new QAccessibleWidget(&scope, QAccessible::Graphic);
}

}  // namespace

StereoScope::StereoScope(QWidget* parent) : QWidget(parent) {
  AccessibleFactory::install<StereoScope, makeReadableScope>();
  setAccessibleName(tr("Stereo scope"));
  _points.setColor(Colors::safe());
  fit();
}

void StereoScope::fit() {
  const double pixels = devicePixelRatioF();
  _points.resize(static_cast<int>(std::lround(std::min(width(), height()) * pixels)),
                 static_cast<int>(std::lround(pixels)));
}

void StereoScope::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fit();
  _ground = {};
}

void StereoScope::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) _points.setColor(Colors::safe());
  _ground = {};
  QWidget::changeEvent(event);
}

void StereoScope::advance(std::span<const float> frames, double seconds) {
  if (_points.isDark() && frames.empty()) return;
  _points.fade(std::exp(-seconds / kFadeTime));
  _points.add(frames);
  update();
}

void StereoScope::clear() {
  if (_points.isDark()) return;
  _points.clear();
  update();
}

void StereoScope::paintEvent(QPaintEvent* /*event*/) {
  if (_ground.isNull() || _ground.devicePixelRatio() != devicePixelRatioF()) drawStill();
  QPainter painter(this);
  painter.drawPixmap(0, 0, _ground);
  if (!_points.isDark()) {
    const double side = std::min(width(), height());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawImage(QRectF(0, 0, side, side), _points.picture());
  }
  painter.drawPixmap(0, 0, _letters);
}

QPixmap StereoScope::stillPicture() const {
  const double pixels = devicePixelRatioF();
  QPixmap picture((QSizeF(size()) * pixels).toSize());
  picture.setDevicePixelRatio(pixels);
  picture.fill(Qt::transparent);
  return picture;
}

void StereoScope::drawStill() {
  _ground = stillPicture();
  QPainter ground(&_ground);
  ground.setRenderHint(QPainter::Antialiasing);
  drawGround(ground);
  _letters = stillPicture();
  QPainter letters(&_letters);
  letters.setRenderHint(QPainter::Antialiasing);
  drawLetters(letters);
}

void StereoScope::drawGround(QPainter& painter) const {
  painter.setPen(Qt::NoPen);
  painter.setBrush(Colors::AppBG());
  painter.drawRoundedRect(rect(), kScopeRadius, kScopeRadius);
  const double side = std::min(width(), height());
  const QPointF middle(side / 2, side / 2);
  painter.setPen(QPen(Colors::guide(), 1));
  const auto line = [&](double x, double y) {
    painter.drawLine(middle + QPointF(x, y) * kInner * side, middle + QPointF(x, y) * side);
  };
  for (const double x : {-kDiagonal, kDiagonal}) {
    for (const double y : {-kDiagonal, kDiagonal}) line(x, y);
  }
  for (const double end : {-kStraight, kStraight}) {
    line(end, 0);
    line(0, end);
  }
}

// Each within a dark edge of its own: points may lie all around it.
void StereoScope::drawLetters(QPainter& painter) const {
  painter.setFont(Appearance::small(font()));
  const double side = std::min(width(), height());
  const double box = std::max<double>(kLetter, painter.fontMetrics().height());
  const double rim = std::max(kRim, box / 2);
  const auto draw = [&](QPointF at, const QColor& color, const QString& text) {
    painter.setPen(color);
    painter.drawText(QRectF(at - QPointF(box, box) / 2, QSizeF(box, box)), Qt::AlignCenter, text);
  };
  const auto letter = [&](double x, double y, const QString& text) {
    for (int turn = 0; turn < 2 * kHaloTurns; ++turn) {
      const double far = turn < kHaloTurns ? kHalo / 2 : kHalo;
      const double angle = 2 * std::numbers::pi * turn / kHaloTurns;
      draw({x + far * std::cos(angle), y + far * std::sin(angle)}, Colors::AppBG(), text);
    }
    draw({x, y}, isEnabled() ? Colors::dimText() : Colors::line(), text);
  };
  letter(rim, rim, tr("L", "left channel"));
  letter(side - rim, rim, tr("R", "right channel"));
  letter(side / 2, rim, tr("M", "mid"));
  letter(side - rim, side / 2, tr("S", "side"));
}
