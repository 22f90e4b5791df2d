// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/ScopePoints.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace {

constexpr int kLightOfAPoint = 110;
constexpr int kBrightest = 255;

}  // namespace

void ScopePoints::resize(int side, int dot) {
  _dot = std::max(1, dot);
  if (side == _side) return;
  _side = std::max(0, side);
  _light.assign(static_cast<std::size_t>(_side) * static_cast<std::size_t>(_side), 0);
  _picture = QImage(_side, _side, QImage::Format_ARGB32_Premultiplied);
  _isDark = true;
  _isDrawn = false;
}

void ScopePoints::setColor(const QColor& color) {
  for (int i = 0; i <= kBrightest; ++i) {
    QColor shade = color;
    shade.setAlpha(i);
    _colors[static_cast<std::size_t>(i)] = qPremultiply(shade.rgba());
  }
  _isDrawn = false;
}

void ScopePoints::fade(double share) {
  if (_isDark) return;
  if (share != _share) {
    _share = share;
    for (std::size_t i = 0; i < _faded.size(); ++i) {
      _faded[i] = static_cast<std::uint8_t>(static_cast<double>(i) * std::clamp(share, 0.0, 1.0));
    }
  }
  std::uint8_t most = 0;
  for (std::uint8_t& light : _light) {
    light = _faded[light];
    most = std::max(most, light);
  }
  _isDark = most == 0;
  _isDrawn = false;
}

void ScopePoints::clear() {
  std::ranges::fill(_light, std::uint8_t{0});
  _isDark = true;
  _isDrawn = false;
}

// With r the length of (Left, Right) the place is as far out as the root of r, on the same line.
QPointF ScopePoints::placeOf(float left, float right) {
  const auto l = static_cast<double>(left);
  const auto r = static_cast<double>(right);
  const double length = std::sqrt(l * l + r * r);  // squares of floats do not overflow
  if (!(length > 0) || !std::isfinite(length)) return {};
  const double scale = std::sqrt(length / std::numbers::sqrt2) / length / std::numbers::sqrt2;
  return {(r - l) * scale, (l + r) * scale};
}

void ScopePoints::add(std::span<const float> frames) {
  if (_side <= 0) return;
  const double half = _side / 2.0;
  for (std::size_t i = 0; i + 1 < frames.size(); i += 2) {
    if (!std::isfinite(frames[i]) || !std::isfinite(frames[i + 1])) continue;
    const QPointF place = placeOf(frames[i], frames[i + 1]);
    const auto x = static_cast<int>(std::floor(half + place.x() * half - (_dot - 1) / 2.0));
    const auto y = static_cast<int>(std::floor(half - place.y() * half - (_dot - 1) / 2.0));
    for (int dy = 0; dy < _dot; ++dy) {
      for (int dx = 0; dx < _dot; ++dx) kindle(x + dx, y + dy);
    }
  }
  _isDark = _isDark && frames.empty();
  _isDrawn = false;
}

// What is louder than the scope shows lies on its edge.
void ScopePoints::kindle(int x, int y) {
  const auto column = static_cast<std::size_t>(std::clamp(x, 0, _side - 1));
  const auto row = static_cast<std::size_t>(std::clamp(y, 0, _side - 1));
  std::uint8_t& light = _light[row * static_cast<std::size_t>(_side) + column];
  light = static_cast<std::uint8_t>(std::min(kBrightest, light + kLightOfAPoint));
}

int ScopePoints::lightAt(int x, int y) const {
  return _light[static_cast<std::size_t>(y) * static_cast<std::size_t>(_side) +
                static_cast<std::size_t>(x)];
}

const QImage& ScopePoints::picture() {
  if (_isDrawn) return _picture;
  for (int y = 0; y < _side; ++y) {
    auto* const line = reinterpret_cast<QRgb*>(_picture.scanLine(y));
    const std::uint8_t* const from = _light.data() + static_cast<std::ptrdiff_t>(y) * _side;
    for (int x = 0; x < _side; ++x) line[x] = _colors[from[x]];
  }
  _isDrawn = true;
  return _picture;
}
