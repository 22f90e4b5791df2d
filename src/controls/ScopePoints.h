// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <array>
#include <cstdint>
#include <span>
#include <vector>

/// Points of light that frames leave on a scope, and that fade: Left alone lies on the diagonal to
/// the upper left, Right alone on that to the upper right, Mid alone upright, Side alone level. The
/// distance from the middle goes by the root of the magnitude, as the heights of the waveform do;
/// both channels at full scale reach the edge. Interface thread.
class ScopePoints {
 public:
  /// A square picture of so many pixels, dark; points are `dot` pixels wide.
  void resize(int side, int dot);
  /// The colour of the brightest point.
  void setColor(const QColor& color);

  /// What is there keeps this share of its light, 0 to 1.
  void fade(double share);
  /// Interleaved pairs, Left and Right; what is not a number leaves no point.
  void add(std::span<const float> frames);
  void clear();
  [[nodiscard]] bool isDark() const { return _isDark; }

  /// Where a frame's point lies, from -1 to 1, y upward.
  static QPointF placeOf(float left, float right);
  /// The light as pixels; valid until the next change.
  [[nodiscard]] const QImage& picture();
  /// Pixels along an edge.
  [[nodiscard]] int side() const { return _side; }
  /// 0 to 255, of a pixel.
  [[nodiscard]] int lightAt(int x, int y) const;

 private:
  void kindle(int x, int y);

  int _side = 0;
  int _dot = 1;
  std::vector<std::uint8_t> _light;
  std::array<std::uint8_t, 256> _faded{};
  double _share = -1;
  std::array<QRgb, 256> _colors{};
  QImage _picture;
  bool _isDark = true;
  bool _isDrawn = false;
};
