// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/LevelMeterPicture.h"

#include <QLinearGradient>
#include <array>
#include <utility>

#include "controls/LevelMeterScale.h"

namespace {

constexpr double kFrameRadius = 2.0;
constexpr double kDimmed = 0.18;

struct LevelColor {
  std::int64_t level;
  QRgb color;
};

// Level 48 is full scale: green is safe, yellow is near; red is over, with a hard edge.
constexpr std::array kColors = {LevelColor{0, 0xFF2E9E6B}, LevelColor{36, 0xFF56C98C},
                                LevelColor{44, 0xFFE2C347}, LevelColor{48, 0xFFE2963C}};
constexpr std::int64_t kFullScale = 48;
constexpr QRgb kOver = 0xFFE5484D;
constexpr double kEdge = 1e-6;  // of the bar: as good as none

QLinearGradient gradient(const QRectF& frame) {
  QLinearGradient colors(frame.bottomLeft(), frame.topLeft());
  const LevelMeterScale scale(1.0);
  for (const auto& [level, color] : kColors) {
    colors.setColorAt(qMin(1.0, scale.visibleHeight(level, 1.0)), QColor::fromRgba(color));
  }
  const double full = scale.visibleHeight(kFullScale, 1.0);
  colors.setColorAt(full + kEdge, QColor::fromRgba(kOver));
  colors.setColorAt(1.0, QColor::fromRgba(kOver));
  return colors;
}

double opacityOf(const QString& name) {
  if (name == QLatin1String("levelmeter")) return 1.0;
  return name == QLatin1String("levelmeter2") ? kDimmed : 0.0;
}

}  // namespace

LevelMeterPicture::LevelMeterPicture(QString name)
    : _name(std::move(name)), _opacity(opacityOf(_name)) {}

void LevelMeterPicture::draw(QPainter& painter, const QRectF& frame) const {
  if (_opacity <= 0.0 || frame.isEmpty()) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(_opacity);
  painter.setPen(Qt::NoPen);
  if (frame != _frame) _brush = gradient(frame);
  _frame = frame;
  painter.setBrush(_brush);
  painter.drawRoundedRect(frame, kFrameRadius, kFrameRadius);
  painter.restore();
}
