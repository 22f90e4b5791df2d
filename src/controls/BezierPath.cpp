// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#include "controls/BezierPath.h"

namespace {

void append(QPainterPath& path, const PathElement& element) {
  const auto& [first, second, third] = element.points;
  switch (element.type) {
    case PathElement::Type::MoveTo:
      return path.moveTo(first);
    case PathElement::Type::LineTo:
      return path.lineTo(first);
    case PathElement::Type::CurveTo:
      return path.cubicTo(first, second, third);
    case PathElement::Type::ClosePath:
      return path.closeSubpath();
  }
}

}  // namespace

std::optional<QPainterPath> toCGPath(std::span<const PathElement> elements) {
  if (elements.empty()) return std::nullopt;
  QPainterPath path;
  bool isClosed = true;
  for (const PathElement& element : elements) {
    append(path, element);
    // A move alone leaves it as it was, also after lines; this is kept on purpose.
    if (element.type == PathElement::Type::ClosePath)
      isClosed = true;
    else if (element.type != PathElement::Type::MoveTo)
      isClosed = false;
  }
  if (!isClosed) path.closeSubpath();
  return path;
}
