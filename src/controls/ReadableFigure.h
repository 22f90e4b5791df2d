// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

/// A figure as assistive software reads it.
class ReadableFigure {
 public:
  ReadableFigure() = default;
  ReadableFigure(const ReadableFigure&) = delete;
  ReadableFigure& operator=(const ReadableFigure&) = delete;
  virtual ~ReadableFigure() = default;

  /// With its unit, and a plain minus sign; "–" where there is none.
  [[nodiscard]] virtual QString figureText() const = 0;
  [[nodiscard]] virtual std::optional<double> figure() const = 0;
};
