// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QPointF>
#include <cstdint>
#include <vector>

/// A thin line inside the arc of the dial, where a width costs headroom; nothing where it costs
/// none. Interface thread.
class CostRing {
 public:
  enum class Cost : std::uint8_t {
    None,  ///< not drawn
    Near,  ///< close to full scale: the colour that warns
    Over,  ///< over it: the colour of what is over
  };
  /// From the middle of the arc inwards to that of the line, clear of the thumb.
  static constexpr double kInset = 14.0;
  static constexpr double kWidth = 2.0;

  /// One a whole degree, from 0 on, each until the next one; none for no line. False where they
  /// are the ones that are drawn.
  bool set(std::vector<Cost> costs);
  [[nodiscard]] const std::vector<Cost>& costs() const { return _costs; }

  /// Onto a painter that is turned upward; `radius` is that of the dial's arc.
  void draw(QPainter& painter, QPointF centre, double radius) const;

 private:
  std::vector<Cost> _costs;
};
