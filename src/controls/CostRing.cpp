// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/CostRing.h"

#include <QPainterPath>
#include <QPen>
#include <algorithm>
#include <cstddef>
#include <utility>

#include "controls/Colors.h"

namespace {

constexpr double kTop = 90.0;  // where angle 0 is, in degrees from the right

QPen penOf(CostRing::Cost cost) {
  const QColor color = cost == CostRing::Cost::Over ? Colors::over() : Colors::warning();
  return {color, CostRing::kWidth, Qt::SolidLine, Qt::FlatCap};
}

}  // namespace

bool CostRing::set(std::vector<Cost> costs) {
  if (costs == _costs) return false;
  _costs = std::move(costs);
  return true;
}

// The last degree has none after it: what begins there takes the one before it.
void CostRing::draw(QPainter& painter, QPointF centre, double radius) const {
  const double r = radius - kInset;
  const QRectF circle(centre - QPointF(r, r), QSizeF(2 * r, 2 * r));
  const std::size_t last = _costs.empty() ? 0 : _costs.size() - 1;
  for (std::size_t i = 0; i < _costs.size();) {
    std::size_t next = i + 1;
    while (next < _costs.size() && _costs[next] == _costs[i]) ++next;
    const auto from = static_cast<double>(std::min(i, last - std::min<std::size_t>(last, 1)));
    const auto to = static_cast<double>(std::min(next, last));
    QPainterPath line;
    // The toolkit's angles turn the other way once y is upward.
    line.arcMoveTo(circle, -kTop - from);
    line.arcTo(circle, -kTop - from, from - to);
    if (_costs[i] != Cost::None) painter.strokePath(line, penOf(_costs[i]));
    i = next;
  }
}
