// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <array>
#include <span>

#include "controls/TimeRuler.h"
#include "controls/TimeWindow.h"

/// The ruler over the picture of a take: marks at round times, each with its time beside it, to the
/// right or, where there is no room any more, to the left. No time is cut off or touches another;
/// one of which something else in the ruler would cover a part is left out whole. Pixels are the
/// toolkit's. Interface thread.
class WaveformRuler {
 public:
  /// Of what the ruler belongs to; times are written smaller.
  void setFont(const QFont& font);
  [[nodiscard]] const QFont& font() const { return _small; }
  /// From the upper edge down.
  [[nodiscard]] double height() const { return _height; }

  /// Over a stretch that fills `body`. What others draw over the ruler afterwards is `covered`;
  /// what is empty there covers nothing.
  void draw(QPainter& painter, const TimeWindow& stretch, const QRectF& body,
            std::span<const QRectF> covered);

 private:
  /// How far marks are apart at least.
  double gap(const TimeWindow& stretch, double perPixel);
  [[nodiscard]] QRectF placeOf(double wide, double x, double end) const;

  QFont _small;
  double _height = 0;
  double _leastGap = 0;
  double _gap = 0;
  std::array<double, 2> _asked{};  ///< what the gap is for: its end, seconds a pixel
  TimeRuler _times;
};
