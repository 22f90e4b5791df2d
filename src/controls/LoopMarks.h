// SPDX-FileCopyrightText: 2026 The Mixdeck developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <array>
#include <optional>

#include "controls/TimeWindow.h"

/// The marks A and B of a stretch of a take, drawn over its picture and moved by hand in the ruler:
/// a drag begins new ones, a drag that begins on a mark moves that one once both are set. Times are
/// seconds, places those of the `TimeWindow`. Interface thread.
class LoopMarks {
 public:
  struct Marks {
    double a = 0;
    std::optional<double> b;  ///< after `a`; none while only A is set

    bool operator==(const Marks&) const = default;
  };
  /// Who comes as near to a mark has it, pixels; who moves less has not dragged.
  static constexpr double kReach = 5;
  static constexpr double kDrag = 4;
  /// Of A and B; empty where none is in view.
  using Flags = std::array<QRectF, 2>;

  LoopMarks();

  /// Sets or takes away the marks; false where nothing changed.
  bool set(const std::optional<Marks>& marks);
  /// As they are, or, during a drag, as they would be.
  [[nodiscard]] const std::optional<Marks>& marks() const { return _isDragged ? _drawn : _marks; }

  /// Whether a drag from this place moves a mark: A alone is none that can be moved.
  [[nodiscard]] bool isMark(const TimeWindow& window, double place) const {
    return opposite(window, place).has_value();
  }
  void press(const TimeWindow& window, double place);
  void drag(const TimeWindow& window, double place);
  /// What was drawn, with both marks; none where nothing was dragged.
  std::optional<Marks> release();
  void letGo() { _isHeld = _isDragged = false; }
  /// Between press and release.
  [[nodiscard]] bool isHeld() const { return _isHeld; }

  /// The stretch between the marks, under the picture, which fills `body`.
  void drawStretch(QPainter& painter, const TimeWindow& window, const QRectF& body) const;
  /// Where the flags of the marks stand, in the ruler over the body.
  [[nodiscard]] Flags flags(const QFont& font, const TimeWindow& window, const QRectF& body) const;
  /// The marks themselves, in the font of the painter: the flags, and lines through the body.
  void drawMarks(QPainter& painter, const TimeWindow& window, const QRectF& body) const;

 private:
  /// The time of the other mark, where there is one of the two at this place.
  [[nodiscard]] std::optional<double> opposite(const TimeWindow& window, double place) const;
  static void drawMark(QPainter& painter, const QRectF& flag, const QRectF& body,
                       const QString& letter);

  std::array<QString, 2> _letters;
  std::optional<Marks> _marks;
  std::optional<Marks> _drawn;
  bool _isHeld = false;
  bool _isDragged = false;
  double _pressed = 0;  ///< place
  double _fixed = 0;    ///< seconds: the other end of what is dragged
};
