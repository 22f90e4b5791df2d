// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QPointF>
#include <array>
#include <optional>
#include <span>

// No program calls what follows; it belongs to the system's interface.

/// One element of a path, as drawings are stored.
struct PathElement {
  enum class Type { MoveTo = 0, LineTo = 1, CurveTo = 2, ClosePath = 3 };

  Type type = Type::MoveTo;
  /// A move or a line uses the first; a curve all three: two control points, then its end.
  std::array<QPointF, 3> points{};
};

/// The elements as a path of the toolkit; nothing for no elements. A path that is left open is
/// closed in the end. Stateless; any thread.
std::optional<QPainterPath> toCGPath(std::span<const PathElement> elements);
