// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/StereoScope.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/AccessibleFactory.h"
#include "controls/Appearance.h"
#include "controls/Colors.h"

namespace {

constexpr double kScopeRadius = 4;
constexpr double kFadeTime = 0.12;  // seconds after which a point has a third of its light
constexpr double kLetter = 16;      // of its box, at least
constexpr double kEdge = 10;        // from there to its middle, at least
constexpr double kInner = 0.05;     // of the side: the lines keep clear of the middle
constexpr double kDiagonal = 0.36;  // how far out lines reach
constexpr double kStraight = 0.38;

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
}

void StereoScope::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) update();
  if (event->type() == QEvent::PaletteChange) _points.setColor(Colors::safe());
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
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(Colors::AppBG());
  painter.drawRoundedRect(rect(), kScopeRadius, kScopeRadius);
  drawGraticule(painter);
  if (_points.isDark()) return;
  painter.drawImage(QRectF(0, 0, std::min(width(), height()), std::min(width(), height())),
                    _points.picture());
}

void StereoScope::drawGraticule(QPainter& painter) const {
  const double side = std::min(width(), height());
  const QPointF middle(side / 2, side / 2);
  painter.setPen(QPen(Colors::ControlColor(), 1));
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
  painter.setFont(Appearance::small(font()));
  painter.setPen(isEnabled() ? Colors::dimText() : Colors::line());
  const double box = std::max<double>(kLetter, painter.fontMetrics().height());
  const auto letter = [&](double x, double y, const QString& text) {
    painter.drawText(QRectF(x - box / 2, y - box / 2, box, box), Qt::AlignCenter, text);
  };
  const double edge = std::max(kEdge, box / 2);
  letter(edge, edge, tr("L", "left channel"));
  letter(side - edge, edge, tr("R", "right channel"));
  letter(side / 2, edge, tr("M", "mid"));
  letter(side - edge, side / 2, tr("S", "side"));
}
